# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT

# The layering of docs/architecture.md, enforced by the compiler.
#
# Headers are included as "layer/File.h". The source root is on nobody's include path; instead each
# layer has an include root of its own in the build tree that holds a link to that layer and nothing
# else. A target sees a layer's root only by linking the layer, so an include that points against the
# arrows finds no file.

# pallistrom_layer(<target> <kind> ROOT <layer> [SOURCES <file>...] [LINK <target>...] [PRIVATE_LINK <target>...])
#
# Makes the library <target> (<kind> is STATIC or INTERFACE) whose headers are included as "<layer>/...".
function(pallistrom_layer target kind)
    cmake_parse_arguments(LAYER "" "ROOT" "SOURCES;LINK;PRIVATE_LINK" ${ARGN})
    string(REPLACE "/" "-" root_name "${LAYER_ROOT}")
    set(include_root "${CMAKE_BINARY_DIR}/include/${root_name}")
    get_filename_component(parent "${include_root}/${LAYER_ROOT}" DIRECTORY)
    file(MAKE_DIRECTORY "${parent}")
    if(LAYER_ROOT STREQUAL "platform")
        # Only the seam itself: the answers of one system lie in folders below it.
        file(GLOB headers CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/platform/*.h")
        file(REMOVE_RECURSE "${include_root}/platform")
        file(MAKE_DIRECTORY "${include_root}/platform")
        foreach(header IN LISTS headers)
            get_filename_component(name "${header}" NAME)
            file(CREATE_LINK "${header}" "${include_root}/platform/${name}" SYMBOLIC)
        endforeach()
    else()
        file(CREATE_LINK "${CMAKE_SOURCE_DIR}/${LAYER_ROOT}" "${include_root}/${LAYER_ROOT}" SYMBOLIC)
    endif()

    add_library(${target} ${kind})
    if(kind STREQUAL "INTERFACE")
        target_include_directories(${target} INTERFACE "${include_root}")
        target_link_libraries(${target} INTERFACE ${LAYER_LINK})
    else()
        target_sources(${target} PRIVATE ${LAYER_SOURCES})
        target_include_directories(${target} PUBLIC "${include_root}")
        target_link_libraries(${target} PUBLIC ${LAYER_LINK} PRIVATE ${LAYER_PRIVATE_LINK})
    endif()
endfunction()

# pallistrom_link(<target> <library>...)
#
# Links the layers of a program with the libraries that answer their seam. Those above do not name
# those that answer, so no order of theirs can be right: the linker looks through all of them again.
function(pallistrom_link target)
    string(REPLACE ";" "," libraries "${ARGN}")
    target_link_libraries(${target} PRIVATE "$<LINK_GROUP:RESCAN,${libraries}>")
endfunction()

# pallistrom_uses_qt(<target>)
#
# What every target that includes Qt is compiled with: signals and slots by their long names, no text
# or address that turns into another kind by itself.
function(pallistrom_uses_qt target)
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    target_compile_definitions(
        ${target} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
                          QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
endfunction()
