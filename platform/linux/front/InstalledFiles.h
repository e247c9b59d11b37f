// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

/// What is installed along with the program for desktops to run.
namespace pallistrom::InstalledFiles {

/// Returns the script for KDE's window manager.
[[nodiscard]] std::filesystem::path kwinScript();

} // namespace pallistrom::InstalledFiles
