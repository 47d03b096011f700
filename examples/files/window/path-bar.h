// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <VelaButtonPath>

#include <QStringList>

/// The way to a folder from home or from root, whichever it lies in.
class PathBar : public VelaButtonPath
{
    Q_OBJECT

public:
    explicit PathBar(QWidget *parent = nullptr);
    ~PathBar() override;

    void setFolder(const QString &folder);

Q_SIGNALS:
    void chosen(const QString &folder);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void renew();
    void choose(const QString &shownPath);

    QString m_folder;
    QStringList m_folders; // that of each button
};
