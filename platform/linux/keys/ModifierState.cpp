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
    // The key of caps lock may be down when it is not locked, and up when it is.
    const CGEventFlags held = m_table.flagsOf(m_held) & ~kCGEventFlagMaskAlphaShift;
    return m_capsLocked ? held | kCGEventFlagMaskAlphaShift : held;
}

} // namespace pallistrom
