# SPDX-FileCopyrightText: 2026 The Vela Components authors
# SPDX-License-Identifier: MIT

# shellcheck shell=bash
# An environment of their own for the programs that a script starts.

# forget_desktop <home>: takes away the settings, fonts and language that the user of a desktop has chosen.
forget_desktop()
{
    unset "${!FONTCONFIG_@}" "${!GNOME_@}" "${!KDE_@}" "${!LC_@}" "${!QT_@}" "${!XDG_@}"
    unset DESKTOP_SESSION DISPLAY LANG LANGUAGE SESSION_MANAGER WAYLAND_DISPLAY
    mkdir -p "$1"
    export HOME=$1 XDG_RUNTIME_DIR=$1/runtime
    [[ -d $XDG_RUNTIME_DIR ]] || mkdir --mode=700 "$XDG_RUNTIME_DIR"
    export LC_ALL=C.UTF-8 QT_XCB_GL_INTEGRATION=none DBUS_SESSION_BUS_ADDRESS=disabled:
    FONTCONFIG_FILE=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/tests/support/fonts.conf
    export FONTCONFIG_FILE
}
