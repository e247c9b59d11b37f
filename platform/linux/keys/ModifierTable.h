// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/KeyMap.h"
#include "platform/linux/keys/KeySet.h"
#include "platform/linux/keys/Modifier.h"

#include <array>
#include <optional>
#include <span>

namespace pallistrom {

/// Which keys are which modifiers in a session. It is for the session to say: layouts and options
/// move them (caps lock as control, swapped keys, right Alt as AltGr).
class ModifierTable {
public:
    /// The highest key code that can be a modifier; those above are none.
    static constexpr EvdevCode highestCode = 255;

    /// No key is a modifier.
    constexpr ModifierTable() = default;

    /// What a keyboard has printed on its keys.
    [[nodiscard]] static ModifierTable standard();

    /// Says what the key `code` does. A code above highestCode is ignored.
    void set(EvdevCode code, Modifier modifier);

    [[nodiscard]] Modifier modifierOf(EvdevCode code) const;

    /// Returns the keys that are modifiers on every keyboard, and Caps Lock. No other is ever
    /// pressed in place of somebody's fingers, whatever the session says that it does: where the
    /// session is wrong, Enter or a letter would be typed.
    [[nodiscard]] static const KeySet& pressable();

    /// Returns a key that does `modifier` and may be pressed, the lowest code if there are several.
    [[nodiscard]] std::optional<EvdevCode> keyFor(Modifier modifier) const;

    /// Returns those of `keys` that do one of `modifiers`.
    [[nodiscard]] KeySet keysOf(const KeySet& keys, std::span<const Modifier> modifiers) const;

    /// Returns the keys that put one of `flags` into a mask.
    [[nodiscard]] KeySet keysFor(CGEventFlags flags) const;

    /// Returns the flags that `keys` put into a mask while they are down.
    [[nodiscard]] CGEventFlags flagsOf(const KeySet& keys) const;

    /// Returns a table by which, for each modifier in `flags`, the keys in `held` are none, so that
    /// keyFor() gives one that is not held. A modifier without such a key is left as it is.
    [[nodiscard]] ModifierTable withSpareKeysFor(CGEventFlags flags, const KeySet& held) const;

    friend bool operator==(const ModifierTable&, const ModifierTable&) = default;

private:
    std::array<Modifier, highestCode + 1> m_modifiers{};
    /// The keys of each modifier: a key press asks for them several times. Empty for None.
    std::array<KeySet, modifierCount> m_keys{};
};

} // namespace pallistrom
