// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// What the environment says of the places of this session. Rules: XDG Base Directory
/// Specification.
namespace pallistrom::SessionPaths {

/// Returns an environment variable, or `fallback` if it is missing or empty.
[[nodiscard]] std::string variable(const char* name, std::string_view fallback = {});

/// Returns the paths of a list that colons divide. Relative ones are left out: they mean another
/// place for each program.
[[nodiscard]] std::vector<std::filesystem::path> absolutePathsIn(std::string_view list);

/// Returns $XDG_CONFIG_HOME.
[[nodiscard]] std::filesystem::path configHome();

/// Returns $XDG_STATE_HOME.
[[nodiscard]] std::filesystem::path stateHome();

/// Returns $XDG_CACHE_HOME.
[[nodiscard]] std::filesystem::path cacheHome();

/// Returns $XDG_CONFIG_DIRS, the first counting most.
[[nodiscard]] std::vector<std::filesystem::path> configFolders();

/// Returns $XDG_DATA_HOME and $XDG_DATA_DIRS, the first counting most.
[[nodiscard]] std::vector<std::filesystem::path> dataFolders();

} // namespace pallistrom::SessionPaths
