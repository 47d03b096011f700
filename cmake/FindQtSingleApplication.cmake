# SPDX-FileCopyrightText: 2026 The Vela Components authors
# SPDX-License-Identifier: MIT

# FindQtSingleApplication
#
# Looks for the single-instance support of Qt Solutions as distributions package it, built for Qt 5, and defines the
# target QtSingleApplication::QtSingleApplication. The names are those that the packages give the library, with and
# without the version that its sources put there. An edition without one of the headers that applications include does
# not count.
find_path(QtSingleApplication_INCLUDE_DIR
    NAMES qtsingleapplication.h
    PATH_SUFFIXES qt5/QtSolutions qt5/QtSingleApplication qt5/qtsingleapplication
        QtSolutions qtsingleapplication qt5)
find_library(QtSingleApplication_LIBRARY
    NAMES Qt5Solutions_SingleApplication Qt5Solutions_SingleApplication-2.6 QtSolutions_SingleApplication-2.6
        qt5singleapplication qtsingleapplication-qt5 qtsingleapplication)

include(FindPackageHandleStandardArgs)
set(QtSingleApplication_HAS_ALL_HEADERS TRUE)
foreach(name IN ITEMS qtlocalpeer.h qtlockedfile.h qtsingleapplication.h)
    if(NOT EXISTS "${QtSingleApplication_INCLUDE_DIR}/${name}")
        set(QtSingleApplication_HAS_ALL_HEADERS FALSE)
    endif()
endforeach()
find_package_handle_standard_args(QtSingleApplication
    REQUIRED_VARS QtSingleApplication_LIBRARY QtSingleApplication_INCLUDE_DIR QtSingleApplication_HAS_ALL_HEADERS)
mark_as_advanced(QtSingleApplication_INCLUDE_DIR QtSingleApplication_LIBRARY)

if(QtSingleApplication_FOUND AND NOT TARGET QtSingleApplication::QtSingleApplication)
    add_library(QtSingleApplication::QtSingleApplication UNKNOWN IMPORTED)
    set_target_properties(QtSingleApplication::QtSingleApplication PROPERTIES
        IMPORTED_LOCATION "${QtSingleApplication_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${QtSingleApplication_INCLUDE_DIR}")
endif()
