// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/PackageCommand.h"

#include "pallistrom/Names.h"

#include <array>
#include <string_view>

namespace pallistrom::PackageCommand {

namespace {

struct Row {
    std::string_view family; // as ID or ID_LIKE of os-release(5) have it
    std::string_view before; // what stands before the package
    bool namesPackage = true;
};

constexpr std::array table{
    Row{"debian", "sudo apt update && sudo apt install --only-upgrade "},
    Row{"ubuntu", "sudo apt update && sudo apt install --only-upgrade "},
    Row{"fedora", "sudo dnf upgrade --refresh "},
    Row{"rhel", "sudo dnf upgrade --refresh "},
    Row{"opensuse", "sudo zypper refresh && sudo zypper update "},
    Row{"suse", "sudo zypper refresh && sudo zypper update "},
    // Arch supports no update of a part of the system.
    Row{"arch", "sudo pacman -Syu", false},
    Row{"alpine", "sudo apk add --upgrade "},
};

} // namespace

std::string forSystem(const OsRelease& release, SystemFiles files) {
    if (files == SystemFiles::Image) {
        return {};
    }
    for (const std::string& family : release.families) {
        for (const Row& row : table) {
            if (row.family == family) {
                return std::string(row.before) +
                       std::string(row.namesPackage ? Names::package : std::string_view());
            }
        }
    }
    return {};
}

} // namespace pallistrom::PackageCommand
