// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// The desktop's program for what is installed, if it has one: whichever opens the addresses of
/// AppStream.
namespace pallistrom::SoftwareCentre {

/// Returns whether one of `folders`, data folders by the XDG Base Directory Specification, has an
/// application that opens the addresses of AppStream. Reads files.
[[nodiscard]] bool exists(const std::vector<std::filesystem::path>& folders);

/// Returns the desktop entries that `mimeInfoCache`, a cache of MIME types by the Desktop Entry
/// Specification, has for the addresses of AppStream.
[[nodiscard]] std::vector<std::string> entriesIn(std::string_view mimeInfoCache);

/// Shows this program there.
void open();

} // namespace pallistrom::SoftwareCentre
