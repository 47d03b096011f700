# SPDX-FileCopyrightText: 2026 The Vela Components authors
# SPDX-License-Identifier: MIT

# vela_public_header(<path below src/> [PUBLISHED_IN <folder>] [CLASSES <class> ...])
#
# Registers a public header of the library: applications include it by its name in the folder that it is published in,
# which is the one it lies in unless another is given, or by the name of a class that it declares. Both of these work in
# the build tree and once installed:
#     #include "component/vela-button.h"
#     #include <VelaButton>
# (ecm_generate_headers() derives the file name from the class name and so cannot serve files named vela-button.h.)
function(vela_public_header path)
    cmake_parse_arguments(header "" "PUBLISHED_IN" "CLASSES" ${ARGN})
    get_filename_component(folder "${path}" DIRECTORY)
    get_filename_component(name "${path}" NAME)
    if(NOT header_PUBLISHED_IN)
        set(header_PUBLISHED_IN "${folder}")
    endif()
    set(published "${header_PUBLISHED_IN}/${name}")

    set_property(GLOBAL APPEND PROPERTY VELA_PUBLIC_HEADERS "${CMAKE_CURRENT_SOURCE_DIR}/${path}")
    install(FILES "${CMAKE_CURRENT_SOURCE_DIR}/${path}" DESTINATION "${VELA_INCLUDE_DIR}/${header_PUBLISHED_IN}")
    if(NOT published STREQUAL path)
        file(CONFIGURE OUTPUT "${VELA_GENERATED_INCLUDE_DIR}/${published}" CONTENT "#include \"${path}\"\n")
    endif()
    foreach(class IN LISTS header_CLASSES)
        set(forwarding_header "${VELA_GENERATED_INCLUDE_DIR}/${class}")
        file(CONFIGURE OUTPUT "${forwarding_header}" CONTENT "#include \"${published}\"\n")
        install(FILES "${forwarding_header}" DESTINATION "${VELA_INCLUDE_DIR}")
    endforeach()
endfunction()
