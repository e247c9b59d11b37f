// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/KeyMap.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom {

/// Which keycode of an X server is which key, and the other way. Each keycode has a key of its own.
class X11KeyPositions {
public:
    using Keycode = std::uint8_t;

    /// A keycode and the name of its position, as XKB has it.
    struct Named {
        Keycode keycode = 0;
        std::string name;
    };

    /// Positions as servers have them that read evdev devices, for a server that names none.
    X11KeyPositions() : X11KeyPositions(std::vector<Named>()) {}

    /// Keys are found by the names of their positions, since servers for remote screens number them
    /// as they please. Keycodes without a known name get keys that are left.
    explicit X11KeyPositions(const std::vector<Named>& names);

    [[nodiscard]] std::optional<EvdevCode> evdevCode(Keycode keycode) const;
    [[nodiscard]] std::optional<Keycode> keycode(EvdevCode code) const;

    friend bool operator==(const X11KeyPositions&, const X11KeyPositions&) = default;

private:
    static constexpr Keycode lowestKeycode = 8; // X Window System Protocol, encoding of keycodes.
    static constexpr std::size_t count = 256;

    void pair(Keycode keycode, EvdevCode code);

    std::array<std::optional<EvdevCode>, count> m_codes;
    std::array<std::optional<Keycode>, count> m_keycodes;
};

} // namespace pallistrom
