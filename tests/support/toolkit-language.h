// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoreApplication>
#include <QTranslator>

/// While it lives the toolkit speaks another language, in which all is said by text().
class ToolkitLanguage : public QTranslator
{
public:
    ToolkitLanguage()
    {
        QCoreApplication::installTranslator(this);
        QCoreApplication::sendPostedEvents();
    }

    static QString text() { return QStringLiteral("Fala"); }

    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *, const char *, int) const override { return text(); }
};
