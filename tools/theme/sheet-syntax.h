// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

// Rules of a section with their places, as far as the check has to tell them apart. Whether a section is understood is
// for the toolkit's own parser to say.

/// "[name=value]" in a selector.
struct AttributeCondition
{
    QString name;
    QString comparison; ///< empty where the property only has to be there
    QString value;
};

/// What a selector says of one widget.
struct Compound
{
    bool isChild = false; ///< of the one before, and not any descendant
    QString element; ///< class, "*" or nothing
    QStringList exactClasses; ///< with a "." in front
    QStringList ids;
    QVector<AttributeCondition> attributes;
    QString subControl;
    QStringList states; ///< with "!" in front where they must not hold
};

struct SheetSelector
{
    int begin; ///< in the body
    QString text;
    bool isUnderstood;
    QVector<Compound> compounds;
};

struct SheetDeclaration
{
    int begin; ///< in the body
    QString text;
    QString name; ///< in lower case; empty where there is no ":"
    QString value;
};

struct SheetRule
{
    int begin; ///< in the body, of the selector
    int end; ///< behind the closing brace
    QVector<SheetSelector> selectors;
    QVector<SheetDeclaration> declarations;
};

struct SheetSyntax
{
    QVector<SheetRule> rules;
    QVector<int> unclosedBraces; ///< places in the body
    QVector<int> strayBraces;
    QVector<int> unclosedQuotes;

    bool isSound() const { return unclosedBraces.isEmpty() && strayBraces.isEmpty() && unclosedQuotes.isEmpty(); }
};

/// Takes a section's body apart. One without any brace is taken for declarations alone, as the toolkit does.
SheetSyntax readSyntax(const QByteArray &body);

/// What stands in each "url(...)" of a declaration's value.
QStringList addressesIn(const QString &value);
