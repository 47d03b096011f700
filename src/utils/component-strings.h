// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QMap>
#include <QString>

namespace Vela {
struct LookTables;
}

/// The texts of the user interface by key, in the application's current language.
///
/// Every caption, tool tip, month and weekday name of the library's widgets is looked up here when the widget is built.
/// What is only spoken is English where it is missing: keys that begin with "accessible_", but for the calendar's
/// three. GUI thread only.
class VELA_EXPORT ComponentStrings
{
public:
    /// The one instance, created on first use.
    static ComponentStrings *getInstance();

    /// Replaces the whole table by @p strings; keys that it lacks are gone afterwards. May be called again, after a
    /// change of language for instance: widgets that exist keep the texts that they have.
    void installStrings(const QMap<QString, QString> &strings);

    /// The text under the case-sensitive @p key; the key itself, with a warning, when there is none, so that a missing
    /// translation shows on screen.
    QString getString(const QString &key);

    /// Whether there is a text under the case-sensitive @p key. Nothing is logged.
    bool contains(const QString &key) const;

private:
    friend struct Vela::LookTables; // keeps and replaces all of it

    ComponentStrings() = default;
    ~ComponentStrings() = default;
    Q_DISABLE_COPY_MOVE(ComponentStrings)

    QMap<QString, QString> m_strings;
};
