// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QWidget>

class QPlainTextEdit;
class QToolButton;

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

    /// Lets Tab come to it behind all else in the window, as what is made later comes last by itself.
    void moveToEndOfTabOrder();

private:
    void add(const QString &html);

    QPlainTextEdit *m_text;
    QToolButton *m_clear;
};
