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
    const ModifierTable printed = ModifierTable::standard();
    for (EvdevCode key = 0; key <= ModifierTable::highestCode; ++key) {
        m_foreign[key] = m_all[key] && printed.modifierOf(key) == Modifier::None;
    }
    m_possible = flags(m_all & ~m_foreign);
}

CGEventFlags ModifierSets::flags(const KeySet& keys) const {
    CGEventFlags flags = 0;
    for (const Modifier modifier : ofChords) {
        flags |= areDown(keys, modifier) ? flagOf(modifier) : 0;
    }
    return flags;
}

} // namespace pallistrom
