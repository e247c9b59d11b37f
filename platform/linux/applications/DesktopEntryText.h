// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace pallistrom {

/// What the program asks of a desktop entry. Nothing here reads a file.
struct DesktopEntryText {
    std::string name;           ///< as people know it; empty if it does not say
    std::string startupWmClass; ///< the class of its windows; empty if it does not say
    bool isTerminal = false;    ///< whether it has the category TerminalEmulator

    /// Reads the main group of an entry. Lines that are none are skipped.
    [[nodiscard]] static DesktopEntryText parse(std::string_view text);
};

} // namespace pallistrom
