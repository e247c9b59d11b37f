// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/grants/Grants.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Grants as a text: a line that says which format it is, then a line for each user.
///
///     pallistrom-grants 1
///     1000 given
///     1001 suspended
namespace pallistrom::GrantsText {

/// A text that is longer is none of ours.
inline constexpr std::size_t longest = std::size_t{64} * 1024;

/// Returns what `text` says; nothing unless every character of it is as make() would write it. A
/// permission is not guessed at.
[[nodiscard]] std::optional<Grants> parse(std::string_view text);

[[nodiscard]] std::string make(const Grants& grants);

} // namespace pallistrom::GrantsText
