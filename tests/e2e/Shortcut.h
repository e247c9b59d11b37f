// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "KeyGrab.h"

#include <array>
#include <iosfwd>
#include <string>

namespace pallistrom::e2e {

/// A shortcut as somebody knows it who only sees what the program does.
struct Shortcut {
    std::string name; ///< for the titles of tests
    std::string id;   ///< in the settings
    std::string modifier;
    std::string key;
    std::string editingKeys; ///< the script of the platform's own keys that do the same
    bool deletesToTheLeft;   ///< of the cursor, rather than to the right
    KeyCombination grab;

    /// The script of its presses without the releases, and those of the releases.
    std::string pressed() const { return '+' + modifier + " +" + key; }

    std::string keyReleasedFirst() const { return '-' + key + " -" + modifier; }

    std::string modifierReleasedFirst() const { return '-' + modifier + " -" + key; }
};

void PrintTo(const Shortcut& shortcut, std::ostream* out);

/// All that there are.
const std::array<Shortcut, 4>& allShortcuts();

} // namespace pallistrom::e2e
