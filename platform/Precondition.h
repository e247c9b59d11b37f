// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Log.h"

#include <array>
#include <cstdlib>
#include <string_view>

namespace pallistrom {

/// Stops the program, in every build, after one line in the system log: "Pallistrom: " and `what`
/// (at most 200 characters). For what cannot happen unless the program itself is wrong.
[[noreturn]] inline void preconditionFailure(std::string_view what) {
    // No allocation: the heap may be what is wrong.
    constexpr std::string_view prefix = "Pallistrom: ";
    constexpr std::size_t longest = 200;
    std::array<char, prefix.size() + longest> line{};
    const std::size_t start = prefix.copy(line.data(), prefix.size());
    const std::size_t length = start + what.copy(&line.at(start), longest);
    NSLog(std::string_view(line.data(), length));
    std::abort();
}

/// Stops the program as preconditionFailure() does unless `holds`.
inline void precondition(bool holds, std::string_view what) {
    if (!holds) {
        preconditionFailure(what);
    }
}

} // namespace pallistrom
