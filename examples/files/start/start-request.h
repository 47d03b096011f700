// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

/// What a start asks for, of itself or of the instance that runs already.
struct StartRequest
{
    /// As a message between instances, and back.
    QString toMessage() const;
    static StartRequest fromMessage(const QString &message);

    QString folder; ///< path; empty for none
    QString theme;
    QString language;
};

/// Reads the arguments behind the program's name. What is wrong with them, or the help that was asked for, is left in
/// @p answer, and whether it was help in @p isHelp.
StartRequest readArguments(const QStringList &arguments, QString *answer, bool *isHelp);
