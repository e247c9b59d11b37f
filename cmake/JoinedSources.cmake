# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT

# Some presets compile those sources of a target together that lie in one folder (CMAKE_UNITY_BUILD):
# what they all include is read once, and to build everything takes less than half the time; the linter
# takes a quarter. A file that lacks an include is not noticed there, so the others compile each on its
# own.

# pallistrom_compile_alone(<file>...)
#
# Keeps sources of the current folder's targets apart from the others: those that have a name in an
# unnamed namespace which a neighbour has as well, and those in whose place a program may bring its own.
function(pallistrom_compile_alone)
    set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

function(pallistrom_join_sources_of target)
    get_target_property(source_folder ${target} SOURCE_DIR)
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    foreach(source IN LISTS sources)
        cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY "${source_folder}" NORMALIZE)
        cmake_path(GET source PARENT_PATH folder)
        cmake_path(RELATIVE_PATH folder BASE_DIRECTORY "${CMAKE_SOURCE_DIR}")
        string(MAKE_C_IDENTIFIER "${folder}" group)
        set_source_files_properties("${source}" TARGET_DIRECTORY ${target} PROPERTIES UNITY_GROUP "${group}")
    endforeach()
    set_target_properties(${target} PROPERTIES UNITY_BUILD_MODE GROUP)
endfunction()

function(pallistrom_join_sources_below folder)
    get_property(
        targets
        DIRECTORY "${folder}"
        PROPERTY BUILDSYSTEM_TARGETS)
    foreach(target IN LISTS targets)
        get_target_property(type ${target} TYPE)
        if(type MATCHES "^(EXECUTABLE|(STATIC|OBJECT)_LIBRARY)$")
            pallistrom_join_sources_of(${target})
        endif()
    endforeach()
    get_property(
        folders
        DIRECTORY "${folder}"
        PROPERTY SUBDIRECTORIES)
    foreach(each IN LISTS folders)
        pallistrom_join_sources_below("${each}")
    endforeach()
endfunction()

if(CMAKE_UNITY_BUILD)
    # Once all targets are there.
    cmake_language(DEFER CALL pallistrom_join_sources_below "${CMAKE_SOURCE_DIR}")
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # It would take every source for a header.
        add_compile_options(-Wno-subobject-linkage)
    else()
        # It would compare with the names of other sources. So does g++, of fewer kinds of names.
        add_compile_options(-Wno-shadow)
    endif()
endif()
