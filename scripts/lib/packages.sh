# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash

# What has to be installed, and how it gets there, on Debian 12 and Ubuntu 24.04. To be sourced
# after common.sh.

# packages_to PURPOSE
packages_to() {
    case $1 in
    build) # and start the program
        echo cmake g++ ninja-build pkg-config
        echo libgtest-dev libevdev-dev libsodium-dev libsystemd-dev libudev-dev qt6-base-dev qt6-svg-dev
        echo libwayland-dev libxkbcommon-dev libxkbcommon-x11-dev
        echo libxcb1-dev libxcb-sync-dev libxcb-xinput-dev libxcb-xkb-dev libxcb-xtest0-dev
        echo xdotool
        ;;
    show) # what it does, without a screen
        echo fonts-dejavu-core imagemagick openbox xvfb
        ;;
    test) # it, in programs of other toolkits too
        echo clang-14 libclang-rt-14-dev llvm-14
        echo libbenchmark-dev libgtk-3-dev libgtk-4-dev tk x11-xkb-utils xterm
        echo appstream at-spi2-core dbus dbus-daemon desktop-file-utils libatspi2.0-dev libglib2.0-bin
        echo libxcb-damage0-dev libxml2-utils man-db openssl strace systemd tint2 xdg-utils xfce4-panel xfce4-terminal xz-utils
        ;;
    browse) # as the tests do that take long, and look at Wayland; Ubuntu has no browser among its packages
        echo foot gnome-shell grim kwin-wayland qt6-wayland sway waybar xwayland
        [[ $(. /etc/os-release && echo "$ID") == ubuntu ]] || echo chromium
        ;;
    package) # it
        echo debhelper dpkg-dev git lintian xz-utils
        echo libevdev-dev libsodium-dev libsystemd-dev libudev-dev
        ;;
    root) # on a bare system, in a folder
        echo dbus-daemon debootstrap libglib2.0-bin
        ;;
    release) # it, signed
        echo openssl
        ;;
    emulate) # a machine with keyboards, and a desktop in it
        echo dbus-daemon grim polkitd python3 python3-dbusmock qemu-system-x86 seatd sway
        ;;
    check) # the sources
        echo clang-format-14 clang-tidy-14
        echo codespell git shellcheck
        ;;
    *) refuse "no packages are known to $1" ;;
    esac
}

is_installed() {
    [[ $(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null) == installed ]]
}

as_root() {
    if [[ $EUID == 0 ]]; then
        "$@"
    else
        sudo "$@"
    fi
}

apt_install() {
    as_root apt-get -q update
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y --no-install-recommends install "$@"
}

# need_packages_to PURPOSE...: installs those that are missing, and says nothing if none is.
need_packages_to() {
    local purpose package missing=()
    command -v apt-get >/dev/null || refuse 'only Debian and Ubuntu are known here; see README.md'
    for purpose in "$@"; do
        for package in $(packages_to "$purpose"); do
            is_installed "$package" || missing+=("$package")
        done
    done
    if [[ ${#missing[@]} == 0 ]]; then
        return
    fi
    if [[ $EUID != 0 ]]; then
        echo "To be installed: ${missing[*]}"
        sudo -v || refuse 'installing takes root, or a user who may use sudo'
    fi
    step "Install ${#missing[@]} packages" apt_install "${missing[@]}"
}
