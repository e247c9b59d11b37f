// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/AppcastItem.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

/// How much a feed may hold.
struct AppcastLimits {
    std::size_t bytes = std::size_t{1} << 20;
    std::size_t items = 10000;
    std::size_t text = 2048;   ///< bytes of a text; an item with a longer one is left out
    std::size_t notes = 32768; ///< bytes of an item's notes, of which the rest is left out
    int depth = 16;            ///< of elements within each other
};

/// What a feed says: an RSS 2.0 channel whose items describe versions of the program, with elements
/// and attributes of a name space of their own.
struct Appcast {
    std::vector<AppcastItem> items; ///< in the order of the feed
    std::string problem;            ///< why the feed cannot be read; then there are no items

    /// Reads a feed. It is to be whole and well-formed, in UTF-8, without a document type and so
    /// without entities of its own. What is not known is skipped, as is an item without a version.
    [[nodiscard]] static Appcast parse(std::string_view feed, const AppcastLimits& limits = {});
};

} // namespace pallistrom
