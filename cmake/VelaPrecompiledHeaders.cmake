# SPDX-FileCopyrightText: 2026 The Vela Components authors
# SPDX-License-Identifier: MIT

# Qt's headers, read once for all sources of a large target; the tests, which are optimised less, have their own. No
# source may count on them: each includes what it needs, which builds without this option prove, that of the static library
# for instance.

file(CONFIGURE OUTPUT "${CMAKE_CURRENT_BINARY_DIR}/precompiled.cpp" CONTENT "")
add_library(vela-precompiled STATIC "${CMAKE_CURRENT_BINARY_DIR}/precompiled.cpp")
target_link_libraries(vela-precompiled PRIVATE Qt5::Widgets)
target_precompile_headers(vela-precompiled PRIVATE <QtWidgets>)

if(VELA_BUILD_BENCHMARKS)
    get_property(benchmarks DIRECTORY benchmarks PROPERTY BUILDSYSTEM_TARGETS)
    list(REMOVE_ITEM benchmarks benchmarks) # which only stands for the others
endif()
foreach(target IN ITEMS vela-files-parts vela-gallery-parts vela-theme-parts ${benchmarks})
    if(TARGET ${target})
        target_precompile_headers(${target} REUSE_FROM vela-precompiled)
    endif()
endforeach()

target_precompile_headers(VelaComponents PRIVATE <QtWidgets>) # its sources alone keep their names for log messages
