// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

/// What our archive has brought into the folder where it was unpacked, as the list there says that
/// marks such a folder: a line for each file and each link, with its place below the folder.
namespace pallistrom::PackedFiles {

/// Returns where the list lies below a top folder.
[[nodiscard]] std::filesystem::path listIn(const std::filesystem::path& topFolder);

/// Returns whether nothing but that lies in `topFolder`. If it was unpacked among the files of
/// others, say in ~/.local, or if somebody keeps their own there, the folder is not the program's
/// to replace. Says no, too, where there is no list and where not everything can be looked at.
[[nodiscard]] bool areAllIn(const std::filesystem::path& topFolder);

} // namespace pallistrom::PackedFiles
