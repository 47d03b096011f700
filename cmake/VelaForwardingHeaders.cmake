# vela_public_header(<path below src/> [<class> ...])
#
# Registers a public header of the library and makes, for each class that it declares, a forwarding header of the
# class's name, so that both of these work in the build tree and once installed:
#     #include "component/vela-button.h"
#     #include <VelaButton>
# (ecm_generate_headers() derives the file name from the class name and so cannot serve files named vela-button.h.)
function(vela_public_header path)
    get_filename_component(folder "${path}" DIRECTORY)
    install(FILES "${CMAKE_CURRENT_SOURCE_DIR}/${path}" DESTINATION "${VELA_INCLUDE_DIR}/${folder}")

    foreach(class IN LISTS ARGN)
        set(forwarding_header "${VELA_GENERATED_INCLUDE_DIR}/${class}")
        file(CONFIGURE OUTPUT "${forwarding_header}" CONTENT "#include \"${path}\"\n")
        install(FILES "${forwarding_header}" DESTINATION "${VELA_INCLUDE_DIR}")
    endforeach()

    set_property(GLOBAL APPEND PROPERTY VELA_PUBLIC_HEADERS "${path}")
    set_property(GLOBAL APPEND PROPERTY VELA_FORWARDED_CLASSES ${ARGN})
endfunction()
