// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Texts from outside, made fit for a window of ours: they may be as long as they like.
namespace pallistrom::PlainWords {

/// Returns a version or a name that is too long for a line without its middle.
[[nodiscard]] std::string shortened(std::string_view words);

/// Returns UTF-8 text with places, which cannot be seen, where a line may end within words that are
/// too long for one: addresses, paths.
[[nodiscard]] std::string breakable(std::string_view text);

} // namespace pallistrom::PlainWords
