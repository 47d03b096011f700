# SPDX-FileCopyrightText: 2026 The Vela Components authors
# SPDX-License-Identifier: MIT

# vela_generate_pkgconfig_file(...)
#
# ecm_generate_pkgconfig_file(), which writes the configured prefix into the file, with one difference: the prefix is
# found from the file's own place, so that it is right after `cmake --install --prefix` too, and of a moved install.
function(vela_generate_pkgconfig_file)
    file(RELATIVE_PATH prefix_from_file "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
    string(REGEX REPLACE "/$" "" prefix_from_file "${prefix_from_file}")
    set(CMAKE_INSTALL_PREFIX "\${pcfiledir}/${prefix_from_file}")
    ecm_generate_pkgconfig_file(${ARGN})
endfunction()
