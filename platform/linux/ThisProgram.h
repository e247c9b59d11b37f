// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

/// Where this program lies on the disk.
namespace pallistrom::ThisProgram {

/// Returns the program's file, free of links. Found once: an update may put another in its place.
[[nodiscard]] const std::filesystem::path& file();

/// Returns by which path the program can be started again: the AppImage that it lies in, or else
/// its file.
[[nodiscard]] std::filesystem::path pathToStart();

/// The same, for a program `file` in an environment that says $APPIMAGE and $APPDIR. Programs that
/// an AppImage starts inherit both, so they count for what lies in $APPDIR only.
[[nodiscard]] std::filesystem::path pathToStart(const std::filesystem::path& file,
                                                const std::filesystem::path& appImage,
                                                const std::filesystem::path& appFolder);

} // namespace pallistrom::ThisProgram
