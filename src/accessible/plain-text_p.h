// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

class QLabel;
class QWidget;

namespace Vela::Accessible {

/// @p richText as it is read, in one line.
QString plain(const QString &richText);
/// @p caption as a button or menu shows it, without its access key.
QString withoutAccessKey(QString caption);
/// @p widget's tool tip as it is read, which may be rich.
QString plainToolTip(const QWidget *widget);
/// What @p label shows, without its access key.
QString plainLabel(const QLabel *label);
/// Those of @p texts that are not empty, with commas between them.
QString joined(const QStringList &texts);

} // namespace Vela::Accessible
