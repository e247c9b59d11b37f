# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT

# Whether the keyboard service is built: wherever its libraries are.

find_package(PkgConfig QUIET)
if(PKG_CONFIG_FOUND)
    pkg_check_modules(SERVICE IMPORTED_TARGET libevdev libudev libsystemd>=250)
endif()
option(BUILD_SERVICE "Build the keyboard service (needs libevdev, libudev and libsystemd)" "${SERVICE_FOUND}")
if(BUILD_SERVICE AND NOT SERVICE_FOUND)
    message(FATAL_ERROR "The keyboard service needs libevdev, libudev and libsystemd (BUILD_SERVICE=OFF does without it).")
elseif(NOT BUILD_SERVICE)
    message(STATUS "The keyboard service is not built: BUILD_SERVICE is off, or libevdev, libudev or libsystemd is missing.")
endif()
