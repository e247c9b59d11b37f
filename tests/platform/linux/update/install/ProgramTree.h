// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "TarMaker.h"

#include <filesystem>
#include <map>
#include <string>

/// Programs that are laid out as ours is, for tests that put one in the place of another.
namespace pallistrom::ProgramTree {

/// What lies in a folder: the content of each file, or where a link leads, by path.
using Tree = std::map<std::string, std::string>;

/// Returns all of a small program of some version, made for this computer.
[[nodiscard]] Tree ofVersion(const std::string& version);

/// Writes it into a folder that is not there yet.
void write(const Tree& tree, const std::filesystem::path& folder);

/// Packs it into one folder of an archive.
[[nodiscard]] TarMaker packed(const Tree& tree);

/// Returns what lies in a folder.
[[nodiscard]] Tree read(const std::filesystem::path& folder);

/// Writes a file, compressed if `program` is "gzip" or "xz".
void writeFile(const std::filesystem::path& file,
               const std::string& bytes,
               const std::string& program = {});

} // namespace pallistrom::ProgramTree
