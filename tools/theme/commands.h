// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

/// Does what the command line says. Returns the program's exit code: 0 for nothing found, 1 for something, 2 for what
/// could not be done.
int runCommand(int &argc, char **argv);
