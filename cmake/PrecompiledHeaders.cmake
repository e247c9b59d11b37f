# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT

# Compiles what nearly every file includes once for each target: a build of everything takes less than
# half the time. Off by default, and meant for sources that another build compiles without, since
# with it nobody notices that a file lacks an include.

option(PRECOMPILE_HEADERS "Compile common headers once for each target" OFF)

# Fewer files than this do not make up for it.
set(fewest_precompiled 4)

function(pallistrom_precompile_headers_of folder)
    get_property(
        folders
        DIRECTORY "${folder}"
        PROPERTY SUBDIRECTORIES)
    foreach(each IN LISTS folders)
        pallistrom_precompile_headers_of("${each}")
    endforeach()
    get_property(
        targets
        DIRECTORY "${folder}"
        PROPERTY BUILDSYSTEM_TARGETS)
    foreach(target IN LISTS targets)
        get_target_property(type "${target}" TYPE)
        get_target_property(sources "${target}" SOURCES)
        list(LENGTH sources count)
        if(type MATCHES "^(STATIC_LIBRARY|EXECUTABLE)$" AND NOT count LESS fewest_precompiled)
            target_precompile_headers("${target}" PRIVATE "${CMAKE_SOURCE_DIR}/cmake/precompiled.h")
        endif()
    endforeach()
endfunction()

if(PRECOMPILE_HEADERS)
    # Once all targets are there.
    cmake_language(DEFER CALL pallistrom_precompile_headers_of "${CMAKE_SOURCE_DIR}")
endif()
