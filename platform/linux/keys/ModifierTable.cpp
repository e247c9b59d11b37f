// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keys/ModifierTable.h"

#include <linux/input-event-codes.h>

#include <algorithm>

namespace pallistrom {

ModifierTable ModifierTable::standard() {
    ModifierTable table;
    table.set(KEY_LEFTSHIFT, Modifier::Shift);
    table.set(KEY_RIGHTSHIFT, Modifier::Shift);
    table.set(KEY_LEFTCTRL, Modifier::Control);
    table.set(KEY_RIGHTCTRL, Modifier::Control);
    table.set(KEY_LEFTALT, Modifier::Option);
    table.set(KEY_RIGHTALT, Modifier::Option);
    table.set(KEY_LEFTMETA, Modifier::Command);
    table.set(KEY_RIGHTMETA, Modifier::Command);
    table.set(KEY_CAPSLOCK, Modifier::CapsLock);
    return table;
}

void ModifierTable::set(EvdevCode code, Modifier modifier) {
    if (code <= highestCode) {
        m_modifiers.at(code) = modifier;
    }
}

Modifier ModifierTable::modifierOf(EvdevCode code) const {
    return code <= highestCode ? m_modifiers.at(code) : Modifier::None;
}

std::optional<EvdevCode> ModifierTable::keyFor(Modifier modifier) const {
    const auto* const found = std::find(m_modifiers.begin(), m_modifiers.end(), modifier);
    if (found == m_modifiers.end()) {
        return std::nullopt;
    }
    return static_cast<EvdevCode>(found - m_modifiers.begin());
}

KeySet ModifierTable::keysFor(CGEventFlags flags) const {
    KeySet result;
    for (EvdevCode code = 0; code <= highestCode; ++code) {
        result[code] = (flagOf(m_modifiers.at(code)) & flags) != 0;
    }
    return result;
}

ModifierTable ModifierTable::withSpareKeysFor(CGEventFlags flags, const KeySet& held) const {
    ModifierTable result = *this;
    for (const Modifier modifier :
         {Modifier::Shift, Modifier::Control, Modifier::Option, Modifier::Command}) {
        ModifierTable spare = result;
        forEachKey(keysOf(held, {&modifier, 1}),
                   [&spare](EvdevCode key) { spare.set(key, Modifier::None); });
        if ((flags & flagOf(modifier)) != 0 && spare.keyFor(modifier)) {
            result = spare;
        }
    }
    return result;
}

KeySet ModifierTable::keysOf(const KeySet& keys, std::span<const Modifier> modifiers) const {
    KeySet result;
    for (EvdevCode code = 0; code <= highestCode; ++code) {
        result[code] =
            keys[code] &&
            std::find(modifiers.begin(), modifiers.end(), m_modifiers.at(code)) != modifiers.end();
    }
    return result;
}

} // namespace pallistrom
