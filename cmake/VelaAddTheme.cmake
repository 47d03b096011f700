# SPDX-FileCopyrightText: 2026 The Vela Components authors
# SPDX-License-Identifier: MIT

include_guard(GLOBAL)

# vela_add_theme(NAME <name> PALETTE <file>
#                [SOURCE <folder>] [OUTPUT <folder>] [DESTINATION <folder>] [NO_CHECK])
#
# Makes a theme folder from the reference theme's source in the colours of a palette. The target <name>-theme, part of
# "all", builds it; its property VELA_THEME_DIR is the folder.
#   PALETTE      JSON file of named roles. Those that it leaves out are the ones of the reference palette that it names as
#                "inherits" (light, dark or high-contrast; light if it names none).
#   SOURCE       files that lie over the reference theme's source: new ones are added, those of the same name replace it,
#                and images.json is joined to it
#   OUTPUT       the folder, <name>-theme in the binary folder unless told otherwise. What else lies in it stays there and
#                belongs to the theme: what this build folder has not made is not removed
#   DESTINATION  where the folder is installed, with all that lies in it; without one it is not
#   NO_CHECK     makes no test that runs "vela-theme check" on it
# The theme's README.md tells what a source is made of.

# Roles that come from another one where a palette changes that and does not list them: the role, where it comes from, and how
# many hundredths of which third role are mixed into it.
set_property(GLOBAL PROPERTY VELA_DERIVED_ROLES
    "accent_hovered    accent          14 text"
    "accent_pressed    accent          36 text"
    "accent_text       accent_hovered   0 text"
    "accent_text_pressed accent_pressed 0 text"
    "accent_tint       accent          68 surface"
    "focus             accent           0 text"
    "focused_surface   accent          89 surface"
    "selected          accent          84 surface"
    "selected_hovered  accent          75 surface"
    "selected_pressed  accent          70 surface"
    "item_pressed      accent          70 surface"
    "danger_hovered    danger          14 text"
    "danger_pressed    danger          36 text"
    "error             danger           0 text"
    "error_hovered     danger_pressed   0 text")

function(vela_add_theme)
    cmake_parse_arguments(PARSE_ARGV 0 theme "NO_CHECK" "NAME;PALETTE;SOURCE;OUTPUT;DESTINATION" "")
    if(NOT theme_NAME OR NOT theme_PALETTE OR theme_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "vela_add_theme: NAME and PALETTE are needed; unknown: '${theme_UNPARSED_ARGUMENTS}'")
    endif()
    _vela_find_theme_programs()
    get_property(reference GLOBAL PROPERTY VELA_THEME_SOURCE_DIR)
    set(sources "${reference}")
    if(theme_SOURCE)
        get_filename_component(theme_SOURCE "${theme_SOURCE}" ABSOLUTE)
        if(NOT IS_DIRECTORY "${theme_SOURCE}")
            message(FATAL_ERROR "vela_add_theme: there is no folder ${theme_SOURCE}")
        endif()
        list(PREPEND sources "${theme_SOURCE}")
    endif()
    get_filename_component(theme_PALETTE "${theme_PALETTE}" ABSOLUTE)
    if(NOT theme_OUTPUT)
        set(theme_OUTPUT "${CMAKE_CURRENT_BINARY_DIR}/${theme_NAME}-theme")
    endif()
    get_filename_component(theme_OUTPUT "${theme_OUTPUT}" ABSOLUTE BASE_DIR "${CMAKE_CURRENT_BINARY_DIR}")
    get_filename_component(real_output "${theme_OUTPUT}" REALPATH)
    foreach(source IN LISTS sources)
        get_filename_component(real_source "${source}" REALPATH)
        if(real_source STREQUAL real_output)
            message(FATAL_ERROR "vela_add_theme: OUTPUT is the folder of a source, which it would replace: ${theme_OUTPUT}")
        endif()
    endforeach()
    set(work "${CMAKE_CURRENT_BINARY_DIR}/${theme_NAME}-theme.dir")

    _vela_read_palette("${theme_PALETTE}" "${reference}")
    set(frame_count 24)
    set(configured "")
    set(rendered "")
    set_property(GLOBAL PROPERTY VELA_USED_ROLES "")
    _vela_fill_texts()
    _vela_join_catalogues()
    _vela_render_drawings()
    _vela_render_animations()
    _vela_warn_of_unused_roles()
    _vela_remove_former(${configured} ${rendered})

    add_custom_target(${theme_NAME}-theme ALL DEPENDS ${rendered})
    set_target_properties(${theme_NAME}-theme PROPERTIES VELA_THEME_DIR "${theme_OUTPUT}")
    if(TARGET Vela::vela-theme AND NOT theme_NO_CHECK)
        add_test(NAME ${theme_NAME}-theme COMMAND "$<TARGET_FILE:Vela::vela-theme>" check "${theme_OUTPUT}")
    endif()
    if(theme_DESTINATION)
        install(DIRECTORY "${theme_OUTPUT}/" DESTINATION "${theme_DESTINATION}")
    endif()
endfunction()

function(_vela_find_theme_programs)
    find_program(RSVG_CONVERT rsvg-convert DOC "Renders a theme's drawings")
    find_program(IMAGE_MAGICK NAMES convert-im6.q16 magick convert DOC "Joins the pictures of a theme's animations")
    if(NOT RSVG_CONVERT OR NOT IMAGE_MAGICK)
        message(FATAL_ERROR
            "rsvg-convert and ImageMagick, which render a theme's drawings and animations, were not found. Install them "
            "(Debian: librsvg2-bin, imagemagick). Vela Components itself does without them if VELA_BUILD_THEME, "
            "VELA_BUILD_GALLERY and BUILD_TESTING are off.")
    endif()
endfunction()

# ---- palettes

# Leaves the names of all roles in "roles", and the value of each in "role_<name>".
macro(_vela_read_palette file reference)
    set(palette_inherits light)
    _vela_read_roles("${file}" own)
    set(base "${reference}/palettes/${palette_inherits}.json")
    if(NOT EXISTS "${base}")
        message(FATAL_ERROR "${file}: there is no reference palette \"${palette_inherits}\"")
    endif()
    foreach(palette IN ITEMS "${reference}/palettes/light.json" "${base}" "${file}")
        _vela_read_roles("${palette}" listed)
        list(APPEND roles ${listed})
        _vela_derive_roles("${listed}" derived)
        list(APPEND roles ${derived})
    endforeach()
    list(REMOVE_DUPLICATES roles)
endmacro()

# The names of the roles in a palette file, whose values are left in "role_<name>".
macro(_vela_read_roles file result)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
    file(READ "${file}" palette_text)
    string(JSON palette_size ERROR_VARIABLE palette_error LENGTH "${palette_text}")
    if(palette_error OR palette_size EQUAL 0)
        message(FATAL_ERROR "${file}: not an object of named roles: ${palette_error}")
    endif()
    set(${result} "")
    math(EXPR palette_last "${palette_size} - 1")
    foreach(palette_index RANGE ${palette_last})
        string(JSON role MEMBER "${palette_text}" ${palette_index})
        string(JSON value GET "${palette_text}" "${role}")
        if(role STREQUAL "inherits")
            set(palette_inherits "${value}")
        else()
            list(APPEND ${result} "${role}")
            set(role_${role} "${value}")
        endif()
    endforeach()
endmacro()

# Makes anew what derives from the listed roles and is not among them.
macro(_vela_derive_roles listed result)
    set(${result} "")
    set(changed ${listed})
    get_property(rows GLOBAL PROPERTY VELA_DERIVED_ROLES)
    foreach(row IN LISTS rows)
        separate_arguments(row UNIX_COMMAND "${row}")
        list(POP_FRONT row role from percent other)
        if(from IN_LIST changed AND NOT role IN_LIST changed)
            _vela_mix(role_${role} "${role_${from}}" "${role_${other}}" ${percent})
            list(APPEND ${result} ${role})
            list(APPEND changed ${role})
        endif()
    endforeach()
endmacro()

# <percent> hundredths of the second colour in the first.
function(_vela_mix result first second percent)
    foreach(color IN ITEMS "${first}" "${second}")
        if(NOT color MATCHES "^#[0-9A-Fa-f][0-9A-Fa-f][0-9A-Fa-f][0-9A-Fa-f][0-9A-Fa-f][0-9A-Fa-f]$")
            message(FATAL_ERROR "'${color}' is no colour \"#RRGGBB\", from which others can derive")
        endif()
    endforeach()
    set(mixed "#")
    foreach(position IN ITEMS 1 3 5)
        string(SUBSTRING "${first}" ${position} 2 one)
        string(SUBSTRING "${second}" ${position} 2 two)
        # 256 more, so that there are always two digits behind the first.
        math(EXPR channel "256 + (0x${one} * (100 - ${percent}) + 0x${two} * ${percent} + 50) / 100"
            OUTPUT_FORMAT HEXADECIMAL)
        string(SUBSTRING "${channel}" 3 2 channel)
        string(APPEND mixed "${channel}")
    endforeach()
    string(TOUPPER "${mixed}" mixed)
    set(${result} "${mixed}" PARENT_SCOPE)
endfunction()

# A role that nothing asks for is mostly a misspelt one.
function(_vela_warn_of_unused_roles)
    get_property(used GLOBAL PROPERTY VELA_USED_ROLES)
    foreach(role IN LISTS own)
        if(NOT role IN_LIST used)
            message(WARNING "${theme_PALETTE}: nothing in the theme's sources uses the role \"${role}\"")
        endif()
    endforeach()
endfunction()

# ---- sources

# The files of all sources that match, relative to them and each once.
function(_vela_list_files result)
    set(found "")
    foreach(folder IN LISTS sources)
        list(TRANSFORM ARGN PREPEND "${folder}/" OUTPUT_VARIABLE patterns)
        file(GLOB_RECURSE files CONFIGURE_DEPENDS RELATIVE "${folder}" ${patterns})
        list(APPEND found ${files})
    endforeach()
    list(REMOVE_DUPLICATES found)
    list(SORT found)
    set(${result} ${found} PARENT_SCOPE)
endfunction()

# Where the uppermost file of that name lies.
function(_vela_locate result name)
    foreach(folder IN LISTS sources)
        if(EXISTS "${folder}/${name}")
            set(${result} "${folder}/${name}" PARENT_SCOPE)
            return()
        endif()
    endforeach()
endfunction()

# Writes the uppermost file of that name with the values of the roles in the places of "@role@". Variables have a prefix
# here, because each role is one for a while.
function(_vela_fill fill_name fill_output)
    _vela_locate(fill_file "${fill_name}")
    file(READ "${fill_file}" fill_text)
    string(REGEX MATCHALL "@[A-Za-z0-9_]+@" fill_used "${fill_text}")
    list(REMOVE_DUPLICATES fill_used)
    foreach(fill_role IN LISTS fill_used)
        string(REPLACE "@" "" fill_role "${fill_role}")
        if(NOT DEFINED role_${fill_role})
            message(FATAL_ERROR "${fill_file}: no palette has the role \"${fill_role}\"")
        endif()
        set(${fill_role} "${role_${fill_role}}")
        set_property(GLOBAL APPEND PROPERTY VELA_USED_ROLES "${fill_role}")
    endforeach()
    configure_file("${fill_file}" "${fill_output}" @ONLY)
endfunction()

# Everything but drawings: sheets and colours filled, the rest as it is.
macro(_vela_fill_texts)
    _vela_list_files(names "styles/*.qss" "theme.json")
    foreach(name IN LISTS names)
        _vela_fill("${name}" "${theme_OUTPUT}/${name}")
        list(APPEND configured "${theme_OUTPUT}/${name}")
    endforeach()
    _vela_list_files(names "animations/*.gif" "help/*" "images/*.png" "strings/*.json")
    foreach(name IN LISTS names)
        _vela_locate(file "${name}")
        configure_file("${file}" "${theme_OUTPUT}/${name}" COPYONLY)
        list(APPEND configured "${theme_OUTPUT}/${name}")
    endforeach()
endmacro()

# One catalogue of images from those of all sources.
macro(_vela_join_catalogues)
    foreach(list IN ITEMS images tmp_images)
        set(${list} "")
        foreach(folder IN LISTS sources)
            _vela_list_images("${folder}/images.json" "${list}" names)
            list(APPEND ${list} ${names})
        endforeach()
        list(REMOVE_DUPLICATES ${list})
        list(SORT ${list})
        list(JOIN ${list} "\",\n        \"" ${list})
    endforeach()
    file(CONFIGURE OUTPUT "${theme_OUTPUT}/images.json" @ONLY CONTENT [[
{
    "images": [
        "@images@"
    ],
    "tmp_images": [
        "@tmp_images@"
    ]
}
]])
    list(APPEND configured "${theme_OUTPUT}/images.json")
endmacro()

# The names in a list of a catalogue, which may lack it.
function(_vela_list_images file list result)
    set(names "")
    if(EXISTS "${file}")
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
        file(READ "${file}" text)
        string(JSON size ERROR_VARIABLE error LENGTH "${text}")
        if(error)
            message(FATAL_ERROR "${file}: ${error}")
        endif()
        string(JSON size ERROR_VARIABLE error LENGTH "${text}" "${list}")
        if(NOT error AND size GREATER 0)
            math(EXPR last "${size} - 1")
            foreach(index RANGE ${last})
                string(JSON name GET "${text}" "${list}" ${index})
                list(APPEND names "${name}")
            endforeach()
        endif()
    endif()
    set(${result} ${names} PARENT_SCOPE)
endfunction()

# ---- drawings

# Each drawing at four times its logical size: as it is, in the states that it names, or in the pieces that it names.
macro(_vela_render_drawings)
    _vela_list_files(names "images/states/*.css")
    foreach(name IN LISTS names)
        _vela_fill("${name}" "${work}/${name}")
    endforeach()
    _vela_list_files(names "images/*.svg")
    foreach(name IN LISTS names)
        get_filename_component(drawing "${name}" NAME_WE)
        _vela_fill("${name}" "${work}/images/${drawing}.svg")
        _vela_read_names(states "${work}/images/${drawing}.svg" data-states)
        _vela_read_names(pieces "${work}/images/${drawing}.svg" data-pieces)
        if(NOT pieces)
            _vela_render_drawing("${drawing}" "${drawing}")
        endif()
        foreach(piece IN LISTS pieces)
            _vela_render_drawing("${drawing}_${piece}" "${drawing}" --export-id "${piece}")
        endforeach()
        foreach(state IN LISTS states)
            _vela_render_drawing("${drawing}_${state}" "${drawing}" --stylesheet "${work}/images/states/${state}.css")
        endforeach()
    endforeach()
endmacro()

# The words in an attribute of a drawing.
function(_vela_read_names result file attribute)
    file(READ "${file}" text)
    set(names "")
    if(text MATCHES "${attribute}=\"([^\"]*)\"")
        separate_arguments(names UNIX_COMMAND "${CMAKE_MATCH_1}")
    endif()
    set(${result} ${names} PARENT_SCOPE)
endfunction()

# _vela_render_drawing(<image> <drawing> <option> ...): unless a source has the image as a PNG file.
function(_vela_render_drawing image drawing)
    set(output "${theme_OUTPUT}/images/${image}.png")
    if(output IN_LIST configured)
        return()
    endif()
    set(input "${work}/images/${drawing}.svg")
    set(inputs "${input}" ${ARGN})
    list(FILTER inputs INCLUDE REGEX "\\.(css|svg)$")
    file(MAKE_DIRECTORY "${theme_OUTPUT}/images")
    add_custom_command(OUTPUT "${output}"
        COMMAND "${RSVG_CONVERT}" --zoom 4 ${ARGN} --output "${output}" "${input}"
        DEPENDS ${inputs}
        COMMENT "Rendering ${image}.png of theme ${theme_NAME}"
        VERBATIM)
    set(rendered ${rendered} "${output}" PARENT_SCOPE)
endfunction()

# Pictures of one turn, 40 milliseconds each, whose drawing says by "@angle@" what turns.
macro(_vela_render_animations)
    _vela_list_files(names "animations/*.svg")
    foreach(name IN LISTS names)
        get_filename_component(animation "${name}" NAME_WE)
        _vela_render_animation("${name}" "${animation}")
    endforeach()
endmacro()

function(_vela_render_animation name animation)
    set(output "${theme_OUTPUT}/animations/${animation}.gif")
    if(output IN_LIST configured)
        return()
    endif()
    set(commands "")
    set(drawings "")
    set(pictures "")
    math(EXPR last "${frame_count} - 1")
    foreach(frame RANGE ${last})
        math(EXPR role_angle "360 * ${frame} / ${frame_count}")
        set(base "${work}/animations/${animation}-${frame}")
        _vela_fill("${name}" "${base}.svg")
        list(APPEND drawings "${base}.svg")
        list(APPEND pictures "${base}.png")
        list(APPEND commands COMMAND "${RSVG_CONVERT}" --output "${base}.png" "${base}.svg")
    endforeach()
    file(MAKE_DIRECTORY "${theme_OUTPUT}/animations")
    add_custom_command(OUTPUT "${output}"
        ${commands}
        COMMAND "${IMAGE_MAGICK}" -delay 4 -loop 0 ${pictures} -layers optimize "${output}"
        DEPENDS ${drawings}
        COMMENT "Rendering ${animation}.gif of theme ${theme_NAME}"
        VERBATIM)
    set(rendered ${rendered} "${output}" PARENT_SCOPE)
endfunction()

# Removes what a former state of the sources has left, and keeps a list of what is of the theme now. Other files are someone's.
function(_vela_remove_former)
    set(list "${work}/files")
    if(EXISTS "${list}")
        file(READ "${list}" former)
        list(POP_FRONT former folder)
        list(REMOVE_ITEM former ${ARGN})
        if(former AND folder STREQUAL theme_OUTPUT)
            file(REMOVE ${former})
        endif()
    endif()
    list(JOIN ARGN ";" files)
    file(WRITE "${list}" "${theme_OUTPUT};${files}")
endfunction()
