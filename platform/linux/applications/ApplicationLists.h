// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontApplication.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

/// An application of a built-in list.
struct ListedApplication {
    std::string pattern; ///< of the class of its windows, in lower case
    std::string reason;  ///< why it is on the list; what is of interest to people is before a ';'
    FrontApplication kind = FrontApplication::TakesEditingKeys;

    /// Returns whether it is the application of windows with the class `name`.
    [[nodiscard]] bool isNamed(std::string_view name) const;

    friend bool operator==(const ListedApplication&, const ListedApplication&) = default;
};

/// The lists of applications that come with the program.
namespace ApplicationLists {

/// Returns those that keep their keys, and after them those that edit by selection.
[[nodiscard]] std::span<const ListedApplication> builtIn();

/// Reads a list in the form of keep-their-keys.txt.
[[nodiscard]] std::vector<ListedApplication> parse(std::string_view text, FrontApplication kind);

} // namespace ApplicationLists

} // namespace pallistrom
