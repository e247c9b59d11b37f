// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "DeviceKeyboard.h"
#include "Home.h"
#include "Keyboard.h"

#include <optional>
#include <string>
#include <string_view>

namespace pallistrom::e2e {

/// Somebody at the keyboard of an X display. Keys go by the names of their keysyms, and by shift,
/// ctrl, alt and super. When a function returns, the server has the key presses, but the programs
/// may yet have to hear of them. Throws std::runtime_error if a key cannot be pressed.
class Keys {
public:
    explicit Keys(std::string display, Keyboard keyboard = Keyboard::Faked);

    /// Plays a script of presses and releases: "+ctrl +w -w -ctrl".
    void play(std::string_view script) const;

    /// Presses and releases keys together: "ctrl+w".
    void press(const std::string& chord) const;

    /// Types plain text.
    void type(const std::string& text) const;

private:
    std::string m_display;
    std::optional<DeviceKeyboard> m_device;
    Home m_home;
};

} // namespace pallistrom::e2e
