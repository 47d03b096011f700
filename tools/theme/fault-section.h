// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class Findings;
class QWidget;
class SheetText;

/// The keys of the sections that @p widget has or inherits, the nearest ones first.
QStringList sectionsOf(const QWidget *widget);

/// The one of them without which @p isFaulty would not hold; empty if it is none of them alone. Of several it is the
/// farthest one, as one that is at fault by itself shows where it stands alone.
QString sectionAtFault(QWidget *widget, const std::function<bool()> &isFaulty);

/// Whether a rule has found something at the header of a section.
bool isToldOfSection(const char *rule, const QString &key, const SheetText &sheets, const Findings &findings);

/// Adds a finding there, unless there is one already.
void addToSection(const char *rule, const QString &key, const QString &text, const SheetText &sheets,
                  Findings *findings);
