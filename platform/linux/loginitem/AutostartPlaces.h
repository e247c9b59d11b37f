// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace pallistrom {

/// Where a session looks for autostart entries of our name, and for the programs that they start.
struct AutostartPlaces {
    std::filesystem::path userFile;
    std::vector<std::filesystem::path> systemFiles; ///< the first counting most
    std::filesystem::path program;                  ///< by which path we are to be started
    std::vector<std::filesystem::path> programFolders;
    std::vector<std::string> desktops; ///< as $XDG_CURRENT_DESKTOP lists them

    /// Returns those of this process's session.
    [[nodiscard]] static AutostartPlaces ofSession();
};

} // namespace pallistrom
