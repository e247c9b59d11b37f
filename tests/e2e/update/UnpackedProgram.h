// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <string>

/// The program that was built with the tests, as archives of it have it. All throw
/// std::runtime_error if they cannot.
namespace pallistrom::e2e::UnpackedProgram {

/// Installs what is in an archive.
void install(const std::filesystem::path& folder);

/// Changes entries of the program's bundle information. They have to be there.
void setInformation(const std::filesystem::path& folder,
                    const std::map<std::string, std::string>& entries);

/// Packs a folder into an archive, with the folder in it.
void pack(const std::filesystem::path& folder, const std::filesystem::path& archive);

/// Unpacks an archive into a folder, without the folder in it.
void unpack(const std::filesystem::path& archive, const std::filesystem::path& folder);

} // namespace pallistrom::e2e::UnpackedProgram
