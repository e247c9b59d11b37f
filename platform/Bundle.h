// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pallistrom {

/// What the program's version is called in the information list, as people read it: "1.2".
inline constexpr std::string_view CFBundleShortVersionString = "CFBundleShortVersionString";

/// Returns an entry of the information list that is installed with the program. Nothing where the
/// list or the entry is missing or broken, or where the entry is no text.
std::optional<std::string> objectForInfoDictionaryKey(std::string_view key);

/// Returns what the system's table of window texts holds for `key`, or else `key`, which is the
/// English text.
std::string NSLocalizedString(std::string_view key);

} // namespace pallistrom
