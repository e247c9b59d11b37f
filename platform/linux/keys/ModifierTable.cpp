// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keys/ModifierTable.h"

#include <linux/input-event-codes.h>

namespace pallistrom {

namespace {

constexpr auto all = std::to_array<Modifier>({
    Modifier::Shift,
    Modifier::Control,
    Modifier::Option,
    Modifier::Command,
    Modifier::CapsLock,
    Modifier::Level3,
});

constexpr std::size_t placeOf(Modifier modifier) {
    return static_cast<std::size_t>(modifier);
}

} // namespace

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
    if (code > highestCode) {
        return;
    }
    m_keys.at(placeOf(m_modifiers.at(code))).reset(code);
    m_modifiers.at(code) = modifier;
    if (modifier != Modifier::None) {
        m_keys.at(placeOf(modifier)).set(code);
    }
}

Modifier ModifierTable::modifierOf(EvdevCode code) const {
    return code <= highestCode ? m_modifiers.at(code) : Modifier::None;
}

const KeySet& ModifierTable::pressable() {
    static const KeySet keys = [] {
        KeySet made;
        for (const EvdevCode key : std::to_array<EvdevCode>({KEY_LEFTSHIFT,
                                                             KEY_RIGHTSHIFT,
                                                             KEY_LEFTCTRL,
                                                             KEY_RIGHTCTRL,
                                                             KEY_LEFTALT,
                                                             KEY_RIGHTALT,
                                                             KEY_LEFTMETA,
                                                             KEY_RIGHTMETA,
                                                             KEY_CAPSLOCK})) {
            made.set(key);
        }
        return made;
    }();
    return keys;
}

std::optional<EvdevCode> ModifierTable::keyFor(Modifier modifier) const {
    const KeySet keys = m_keys.at(placeOf(modifier)) & pressable();
    const std::size_t first = keys._Find_first();
    return first < keys.size() ? std::optional(static_cast<EvdevCode>(first)) : std::nullopt;
}

KeySet ModifierTable::keysFor(CGEventFlags flags) const {
    KeySet result;
    for (const Modifier modifier : all) {
        if ((flagOf(modifier) & flags) != 0) {
            result |= m_keys.at(placeOf(modifier));
        }
    }
    return result;
}

CGEventFlags ModifierTable::flagsOf(const KeySet& keys) const {
    CGEventFlags flags = 0;
    for (const Modifier modifier : all) {
        if ((m_keys.at(placeOf(modifier)) & keys).any()) {
            flags |= flagOf(modifier);
        }
    }
    return flags;
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
    for (const Modifier modifier : modifiers) {
        result |= m_keys.at(placeOf(modifier));
    }
    return result & keys;
}

} // namespace pallistrom
