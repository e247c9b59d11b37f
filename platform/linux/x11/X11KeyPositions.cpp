// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11KeyPositions.h"

#include "platform/linux/x11/XkbKeyNames.h"

namespace pallistrom {

X11KeyPositions::X11KeyPositions(const std::vector<Named>& names) {
    for (const Named& named : names) {
        if (const auto code = XkbKeyNames::evdevCode(named.name)) {
            pair(named.keycode, *code);
        }
    }
    // Where a server is fed by evdev, keycodes are key codes plus this.
    constexpr int offset = lowestKeycode;
    for (int keycode = lowestKeycode; keycode < int{count}; ++keycode) {
        pair(static_cast<Keycode>(keycode), static_cast<EvdevCode>(keycode - offset));
    }
    EvdevCode left = 0;
    for (int keycode = lowestKeycode; keycode < int{count}; ++keycode) {
        while (!m_codes.at(static_cast<std::size_t>(keycode))) {
            pair(static_cast<Keycode>(keycode), left++);
        }
    }
}

void X11KeyPositions::pair(Keycode keycode, EvdevCode code) {
    if (keycode >= lowestKeycode && !m_codes.at(keycode) && !m_keycodes.at(code)) {
        m_codes.at(keycode) = code;
        m_keycodes.at(code) = keycode;
    }
}

std::optional<EvdevCode> X11KeyPositions::evdevCode(Keycode keycode) const {
    return m_codes.at(keycode);
}

std::optional<X11KeyPositions::Keycode> X11KeyPositions::keycode(EvdevCode code) const {
    return code < count ? m_keycodes.at(code) : std::nullopt;
}

} // namespace pallistrom
