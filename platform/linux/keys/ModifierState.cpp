// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keys/ModifierState.h"

namespace pallistrom {

void ModifierState::press(EvdevCode key) {
    if (key >= m_held.size()) {
        return;
    }
    const bool isNew = !m_held[key];
    m_held.set(key);
    if (isNew && m_table.modifierOf(key) == Modifier::CapsLock) {
        m_capsLocked = !m_capsLocked;
    }
}

void ModifierState::release(EvdevCode key) {
    if (key < m_held.size()) {
        m_held.reset(key);
    }
}

CGEventFlags ModifierState::flags() const {
    CGEventFlags flags = m_capsLocked ? kCGEventFlagMaskAlphaShift : 0;
    for (EvdevCode key = 0; key <= ModifierTable::highestCode; ++key) {
        const Modifier modifier = m_table.modifierOf(key);
        if (m_held[key] && modifier != Modifier::CapsLock) {
            flags |= flagOf(modifier);
        }
    }
    return flags;
}

} // namespace pallistrom
