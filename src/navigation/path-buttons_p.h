// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

class QPushButton;
class QString;
class QWidget;

namespace Vela {

constexpr int PathArrowWidth = 6; // logical pixels

// Buttons of a path are styled where they stay, as a styled widget that is given another parent is polished again.

/// Makes an arrow, which points in the direction of reading.
QPushButton *createPathArrow(QWidget *parent);

/// Makes a button with the name of a folder. @p showInFull is called when the keyboard comes to it.
QPushButton *createPathName(const QString &name, QWidget *parent, std::function<void()> showInFull);

/// Width in pixels that @p button has with this name. The text's width, which is in pixels already, is scaled as well:
/// themes reckon with the room.
int widthOfPathName(const QString &name, const QPushButton *button);

} // namespace Vela
