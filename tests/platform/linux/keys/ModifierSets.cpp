// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ModifierSets.h"

namespace pallistrom {

namespace {

constexpr std::array ofChords{
    Modifier::Shift, Modifier::Control, Modifier::Option, Modifier::Command};

} // namespace

ModifierSets::ModifierSets(const ModifierTable& table) {
    for (EvdevCode key = 0; key <= ModifierTable::highestCode; ++key) {
        const Modifier modifier = table.modifierOf(key);
        if (modifier != Modifier::None) {
            m_keys.at(static_cast<std::size_t>(modifier)).set(key);
            m_all.set(key);
        }
    }
    m_possible = flags(m_all);
}

CGEventFlags ModifierSets::flags(const KeySet& keys) const {
    CGEventFlags flags = 0;
    for (const Modifier modifier : ofChords) {
        flags |= areDown(keys, modifier) ? flagOf(modifier) : 0;
    }
    return flags;
}

} // namespace pallistrom
