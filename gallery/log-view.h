// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QRgb>
#include <QString>
#include <QWidget>

class QPlainTextEdit;

/// What the widgets emit and the library warns of, with the time.
class LogView : public QWidget
{
    Q_OBJECT

public:
    LogView();

    void addSignal(const QString &text);
    void addWarning(const QString &text);

private:
    void add(const QString &text, QRgb color);

    QPlainTextEdit *m_text;
};
