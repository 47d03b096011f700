// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class Actions;
class PathBar;
class VelaIconButton;

/// The way up, the path, the settings and the help.
class TopRow : public QWidget
{
    Q_OBJECT

public:
    explicit TopRow(const Actions &actions, QWidget *parent = nullptr);
    ~TopRow() override;

    PathBar *path() const;

private:
    void retranslate();

    VelaIconButton *m_up;
    VelaIconButton *m_settings;
    VelaIconButton *m_help;
    PathBar *m_path;
};
