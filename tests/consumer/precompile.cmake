# SPDX-FileCopyrightText: 2026 The Vela Components authors
# SPDX-License-Identifier: MIT

# Included by the project of Vela Files when it is built here, so that its many small sources are compiled in no time.
cmake_language(DEFER CALL target_precompile_headers vela-files-parts PRIVATE <QtWidgets>)
