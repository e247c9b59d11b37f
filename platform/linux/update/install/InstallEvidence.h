// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/UpdateUserDriver.h"

#include <filesystem>

namespace pallistrom {

/// By what one can tell how the program came to this computer.
struct InstallEvidence {
    std::filesystem::path program; ///< its file, free of links
    bool isInSandbox = false; ///< of Flatpak, Snap or an AppImage, which bring updates themselves
    bool hasMarker = false;   ///< whether its folder says that it comes from our archive
    bool isAlone = false;     ///< whether nothing lies in its folder but what the archive brought
    bool isOurs = false;      ///< whether its folder, and the one that holds it, can be written to

    /// Looks at the program `file` that runs.
    [[nodiscard]] static InstallEvidence ofProgram(const std::filesystem::path& file);

    /// Returns what it comes to.
    [[nodiscard]] InstallKind kind() const;

    /// Returns the folder that holds all of the program, if it is laid out as in our archive:
    /// bin/pallistrom, share/pallistrom. Empty otherwise.
    [[nodiscard]] std::filesystem::path topFolder() const;
};

} // namespace pallistrom
