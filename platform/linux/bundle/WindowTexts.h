// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// What window texts say on Linux where the English text speaks of the Mac: of its menu bar, its
/// settings and its permissions.
namespace pallistrom::WindowTexts {

/// Returns what is to be shown for `key`, which is the English text. `systemName` is how this
/// system calls itself.
[[nodiscard]] std::string localized(std::string_view key, std::string_view systemName);

} // namespace pallistrom::WindowTexts
