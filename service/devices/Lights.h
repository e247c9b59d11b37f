// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <linux/input-event-codes.h>

#include <array>
#include <bitset>
#include <cstdint>

namespace pallistrom {

/// The lights of a keyboard and of the virtual one that stands in for it, which are to show the
/// same whoever switches them. The kernel tells everybody of each change, its maker too: taken for
/// news and passed on, such an echo could go back and forth for ever.
class Lights {
public:
    using Lit = std::bitset<LED_CNT>;

    /// Says what is lit on the keyboard.
    void start(const Lit& lit);

    /// The session has switched a light of the virtual keyboard. Returns whether the keyboard is to
    /// follow.
    [[nodiscard]] bool switchedBySession(std::uint16_t light, bool on);

    /// The keyboard says that a light has changed. Returns whether the virtual one is to follow.
    [[nodiscard]] bool changedOnKeyboard(std::uint16_t light, bool on);

private:
    Lit m_lit;
    std::array<unsigned, LED_CNT> m_echoes{}; ///< changes of ours that the keyboard will tell of
};

} // namespace pallistrom
