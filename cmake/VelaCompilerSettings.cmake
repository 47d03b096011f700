# SPDX-FileCopyrightText: 2026 The Vela Components authors
# SPDX-License-Identifier: MIT

# How everything of this project is compiled: library, gallery, tests, benchmarks.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

add_compile_definitions(
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_KEYWORDS
    QT_STRICT_ITERATORS
    QT_USE_QSTRINGBUILDER)

add_compile_options(
    -Wall -Wextra -Wpedantic
    -Wcast-align -Wformat=2 -Wnon-virtual-dtor -Woverloaded-virtual -Wshadow -Wsuggest-override -Wundef -Wvla
    -Wzero-as-null-pointer-constant)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    add_compile_options(-Wno-gnu-zero-variadic-macro-arguments) # of qCWarning
endif()
if(VELA_WARNINGS_AS_ERRORS)
    add_compile_options(-Werror)
endif()

# Log messages carry their source file; its name is the one within the project, wherever the build was made.
add_compile_options("-fmacro-prefix-map=${CMAKE_CURRENT_SOURCE_DIR}/=")

# Undefined symbols are found when the library is linked, not when it is loaded; the sanitizers' own functions, which
# come from the executable, are the exception.
if(VELA_BUILD_FUZZERS)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined)
    add_link_options(-fsanitize=address,undefined)
elseif(ECM_ENABLE_SANITIZERS)
    add_compile_options(-fno-sanitize-recover=undefined)
else()
    add_link_options(LINKER:--no-undefined,--as-needed)
endif()
