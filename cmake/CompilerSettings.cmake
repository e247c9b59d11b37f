# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT

# What every target of the tree is compiled with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# Built programs lie side by side: build/<preset>/pallistrom.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}")

set(SANITIZE "" CACHE STRING "Sanitizers, as for -fsanitize=; empty for none")

add_compile_options(
    -Wall
    -Wextra
    -Wpedantic
    -Wconversion
    -Wsign-conversion
    -Wshadow
    -Wold-style-cast
    -Wnon-virtual-dtor
    -Woverloaded-virtual
    -Wcast-align
    -Wformat=2
    -Wimplicit-fallthrough
    -Wundef
    -Wunused)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-Wduplicated-cond -Wlogical-op -Wuseless-cast)
    # g++ 12 warns of its own std::string when it optimises (GCC bug 105651).
    add_compile_options(-Wno-restrict)
endif()

if(SANITIZE)
    add_compile_options(-fsanitize=${SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${SANITIZE})
else()
    # The sanitizers bring checks of their own, which these would hide.
    add_compile_options(-fstack-protector-strong "$<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>")
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()
