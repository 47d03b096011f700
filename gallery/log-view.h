// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QWidget>

class QPlainTextEdit;

/// What the widgets emit and the library warns of, and what is wrong with the theme, with the time.
class LogView : public QWidget
{
    Q_OBJECT

public:
    LogView();

    void addSignal(const QString &text);
    void addWarning(const QString &text);
    /// Adds a fault of the theme, which names its file.
    void addProblem(const QString &text);

private:
    void add(const QString &html);

    QPlainTextEdit *m_text;
};
