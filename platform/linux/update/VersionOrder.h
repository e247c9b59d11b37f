// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <string_view>

/// Which of two versions is the newer one, as the feed's format orders them.
///
/// What counts are the numbers and the words (runs of other letters) of a version, from left to
/// right; what stands between them only divides them, and from the first '-' on nothing counts.
/// Numbers go by their value, however long they are. A version is followed by zeros without end, so
/// "1.0" is "1.0.0"; a word is older than any number, so "1.2b3" comes before "1.2".
namespace pallistrom::VersionOrder {

/// A total order: it holds for texts that are no versions, too.
[[nodiscard]] std::weak_ordering compare(std::string_view left, std::string_view right);

[[nodiscard]] inline bool isOlder(std::string_view left, std::string_view right) {
    return std::is_lt(compare(left, right));
}

/// Whether a feed may call something by this version: ASCII without spaces, with a digit, and not
/// longer than 64 characters.
[[nodiscard]] bool isVersion(std::string_view text);

} // namespace pallistrom::VersionOrder
