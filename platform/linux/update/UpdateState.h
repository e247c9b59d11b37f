// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pallistrom {

/// What the updater remembers from one run of the program to the next.
struct UpdateState {
    std::optional<std::int64_t> lastCheck{}; ///< seconds since 1970
    std::optional<bool> checksByItself{};    ///< none until the user has said
    std::string skippedVersion{};            ///< empty if none is
    std::string newestVersion{};             ///< the newest that a feed has told of; empty at first
    std::optional<int> rollOutGroup{};       ///< none until it was drawn

    bool operator==(const UpdateState&) const = default;

    /// Reads the text of the file: lines "name=value". Nothing if it is damaged. Names that are not
    /// known are somebody else's.
    [[nodiscard]] static std::optional<UpdateState> parse(std::string_view text);

    /// Returns the text of a file that says this.
    [[nodiscard]] std::string text() const;
};

} // namespace pallistrom
