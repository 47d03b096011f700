// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialogButtonBox>

class QEvent;
class QObject;

namespace Vela::Private {

/// To be asked first in the event filter of a box of buttons. When the application's language changes, the toolkit
/// gives all standard buttons its own captions: those of @p kept get theirs back.
bool keepCaptions(QObject *watched, QEvent *event, QDialogButtonBox::StandardButtons kept);

} // namespace Vela::Private
