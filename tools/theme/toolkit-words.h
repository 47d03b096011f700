// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMetaObject>
#include <QString>
#include <QStringList>

/// What the toolkit's style sheets know.
namespace Toolkit {

const QStringList &properties();
const QStringList &states();
const QStringList &subControls();
/// Whether a property holds a length, which has to be scaled.
bool isLength(const QString &property);
/// Whether a property holds one or more colours and nothing else.
bool isColor(const QString &property);
/// Whether a property holds a colour among other words.
bool holdsColor(const QString &property);
/// The words that a property takes, empty if it takes others too or none.
QStringList keywordsOf(const QString &property);
/// The functions that make gradients.
const QStringList &gradients();
/// Words that stand beside colours.
const QStringList &keywords();
/// Names of the roles in "palette(...)".
const QStringList &paletteRoles();

/// The classes of widgets of toolkit and library.
QStringList classes();
/// Null for a name that is neither the toolkit's nor the library's.
const QMetaObject *classNamed(const QString &name);
/// Whether @p name is the class itself or one of its bases.
bool isBase(const QString &name, const QMetaObject *type);
/// Whether a widget of the class can have the part; true if that is not known.
bool hasSubControl(const QMetaObject *type, const QString &subControl);
/// Whether a widget of the class, or a part of it, can be in the state; true if that is not known.
bool hasState(const QMetaObject *type, const QString &subControl, const QString &state);
/// The class of the object that the toolkit or the library calls so, empty if that is not known.
QString classOfObject(const QString &objectName);

} // namespace Toolkit
