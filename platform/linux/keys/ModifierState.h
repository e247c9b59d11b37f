// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventFlags.h"
#include "platform/linux/keys/KeySet.h"
#include "platform/linux/keys/ModifierTable.h"

namespace pallistrom {

/// The keys that are physically down, and what modifiers that makes in the session.
class ModifierState {
public:
    explicit ModifierState(const ModifierTable& table) : m_table(table) {}

    [[nodiscard]] const ModifierTable& table() const { return m_table; }

    /// The session has other modifier keys from now on; those held count by the new table.
    void setTable(const ModifierTable& table) { m_table = table; }

    [[nodiscard]] const KeySet& held() const { return m_held; }

    [[nodiscard]] bool isHeld(EvdevCode key) const { return key < m_held.size() && m_held[key]; }

    [[nodiscard]] bool isModifier(EvdevCode key) const {
        return m_table.modifierOf(key) != Modifier::None;
    }

    /// Says that exactly `keys` are down.
    void assumeHeld(const KeySet& keys) { m_held = keys; }

    void press(EvdevCode key);
    void release(EvdevCode key);

    /// Returns the modifiers as an event that happens now carries them. Caps lock counts while it
    /// is locked, as far as presses seen here tell.
    [[nodiscard]] CGEventFlags flags() const;

private:
    ModifierTable m_table;
    KeySet m_held;
    bool m_capsLocked = false;
};

} // namespace pallistrom
