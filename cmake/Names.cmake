# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT

# Every name by which other programs, packages and people know Pallistrom. Code, tests and packaging
# take them from here: sources include the generated "pallistrom/Names.h".

set(PALLISTROM_PRODUCT "Pallistrom")
# Also the desktop entry and the name on the session bus.
set(PALLISTROM_APPLICATION_ID "org.pallistrom.Pallistrom")
set(PALLISTROM_APPLICATION_OBJECT "/org/pallistrom/Pallistrom")

set(PALLISTROM_KEYBOARD_BUS_NAME "org.pallistrom.Keyboard1")
set(PALLISTROM_KEYBOARD_OBJECT "/org/pallistrom/Keyboard1")
set(PALLISTROM_POLKIT_ACTION "org.pallistrom.keyboard.filter")

# On the session bus, where desktops tell which window is in front. Nobody is started for it.
set(PALLISTROM_FRONT_BUS_NAME "org.pallistrom.Front1")
set(PALLISTROM_FRONT_OBJECT "/org/pallistrom/Front1")

set(PALLISTROM_PROGRAM "pallistrom")
set(PALLISTROM_SERVICE_PROGRAM "pallistromd")
# Whose process the service is, and whose group /dev/uinput.
set(PALLISTROM_SERVICE_USER "pallistrom")
# Below /var/lib.
set(PALLISTROM_SERVICE_STATE "pallistrom")
set(PALLISTROM_PACKAGE "pallistrom")
set(PALLISTROM_SERVICE_PACKAGE "pallistrom-keyboard-service")

# Below $XDG_CONFIG_HOME.
set(PALLISTROM_SETTINGS_FOLDER "pallistrom")
# Below share, where the program is installed.
set(PALLISTROM_DATA_FOLDER "pallistrom")

# Of the two extensions for GNOME Shell: from 45 on, and before.
set(PALLISTROM_GNOME_EXTENSION "front@pallistrom.org")
set(PALLISTROM_CLASSIC_GNOME_EXTENSION "front-classic@pallistrom.org")

# Whoever releases the program sets these.
set(PALLISTROM_WEBSITE
    "https://pallistrom.invalid"
    CACHE STRING "Home page, without a slash at the end; pictures/ below it has those of docs/pictures")
set(PALLISTROM_SUPPORT_ADDRESS
    "support@pallistrom.invalid"
    CACHE STRING "Recipient of issue reports")
set(PALLISTROM_FEED_ADDRESS
    "https://pallistrom.invalid/appcast.xml"
    CACHE STRING "Update feed")
set(PALLISTROM_FEED_PUBLIC_KEY
    ""
    CACHE STRING "Ed25519 public key of the update feed, base64")

# Where a package manager keeps the program up to date, the program need not look itself.
option(PALLISTROM_AUTOMATIC_CHECKS "Look for updates without being asked, until the user says otherwise" ON)
set(PALLISTROM_CHECK_INTERVAL
    "86400"
    CACHE STRING "Seconds between two such checks; an hour at least")
if(PALLISTROM_AUTOMATIC_CHECKS)
    set(PALLISTROM_AUTOMATIC_CHECKS_TEXT "true")
else()
    set(PALLISTROM_AUTOMATIC_CHECKS_TEXT "false")
endif()

configure_file("${CMAKE_CURRENT_LIST_DIR}/Names.h.in" "${CMAKE_BINARY_DIR}/include/names/pallistrom/Names.h" @ONLY)

# What links this finds the generated headers.
add_library(pallistrom_names INTERFACE)
target_include_directories(pallistrom_names INTERFACE "${CMAKE_BINARY_DIR}/include/names")
