// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

class QWidget;

/// Shows the page of help in the language in force.
void showHelp(QWidget *window);
