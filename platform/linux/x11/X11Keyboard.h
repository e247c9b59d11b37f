// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventFlags.h"
#include "platform/linux/keys/ModifierTable.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11KeyPositions.h"

#include <array>
#include <cstdint>
#include <vector>

namespace pallistrom {

/// The keyboard as the X server has it: which of its keycodes are which keys, and what its
/// modifiers mean. All of it is read from the server; nothing is assumed. Modifiers are those that
/// its keymap makes (KeymapModifiers); a server without XKB tells less of them.
class X11Keyboard {
public:
    /// Reads it, and asks to be told when it changes.
    explicit X11Keyboard(const X11Connection& connection);

    /// Returns whether `event` says that something of this may have changed.
    [[nodiscard]] bool isChange(const xcb_generic_event_t& event) const;

    [[nodiscard]] const X11KeyPositions& positions() const { return m_positions; }

    [[nodiscard]] const ModifierTable& modifiers() const { return m_modifiers; }

    /// Returns what the modifier bits of a key event mean. Bits above the lowest eight are none.
    [[nodiscard]] CGEventFlags flagsOf(std::uint16_t state) const;

    /// Returns every combination of modifier bits that has all of `required` and none of
    /// `forbidden`.
    [[nodiscard]] std::vector<std::uint16_t> statesWith(CGEventFlags required,
                                                        CGEventFlags forbidden) const;

    friend bool operator==(const X11Keyboard&, const X11Keyboard&) = default;

private:
    static constexpr std::size_t modifierBits = 8;

    void readKeymap(const X11Connection& connection);
    void readModifierMap(const X11Connection& connection);

    std::uint8_t m_xkbEvent = 0; ///< the type of XKB's events; 0 where there is no XKB
    X11KeyPositions m_positions;
    ModifierTable m_modifiers;
    std::array<CGEventFlags, modifierBits> m_flagsOfBit{};
};

} // namespace pallistrom
