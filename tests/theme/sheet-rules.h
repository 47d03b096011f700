// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

using Declarations = QMap<QString, QString>;

/// What a rule is about and when it holds.
struct Selector
{
    QString ancestors; ///< everything before the last type, or empty
    QString type;
    QString id;
    QString subControl;
    QStringList states; ///< pseudo states and attribute conditions

    bool isValid() const { return !type.isEmpty(); }
    /// Everything but the states.
    QString target() const;
    /// Pseudo states alone, without attributes.
    bool hasState(const QString &state) const { return states.contains(state); }
};

struct Rule
{
    Selector selector;
    Declarations declarations;
};

/// One section of a style-sheet file, read by a parser of the tests' own.
struct Section
{
    QString key;
    QString text;
    QVector<Rule> rules;

    /// Targets in the order of their first rule.
    QStringList targets() const;
    QVector<Rule> rulesOf(const QString &target) const;
    /// What holds for @p target while exactly @p states hold, stronger rules over weaker ones, with the short
    /// forms "border", "border-<side>" and "padding" written out. A target with an id has the rules of the
    /// one without, too.
    Declarations resolved(const QString &target, const QStringList &states) const;
};

/// The text without its block comments.
QString withoutComments(const QString &text);

/// Cuts a file's text into sections.
QVector<Section> readSections(const QString &text);

/// @p selector without the states, taken apart; invalid if it cannot be understood.
Selector parseSelector(const QString &selector);
