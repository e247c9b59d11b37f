// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/KeySet.h"
#include "platform/linux/keys/ModifierTable.h"

#include <array>
#include <cstddef>

namespace pallistrom {

/// A modifier table as sets of keys, which are quicker to compare.
class ModifierSets {
public:
    explicit ModifierSets(const ModifierTable& table);

    [[nodiscard]] const KeySet& of(Modifier modifier) const {
        return m_keys.at(static_cast<std::size_t>(modifier));
    }

    /// Returns the keys that are some modifier.
    [[nodiscard]] const KeySet& all() const { return m_all; }

    /// Returns the keys of which a tap alone opens something.
    [[nodiscard]] KeySet openers() const { return of(Modifier::Option) | of(Modifier::Command); }

    [[nodiscard]] bool areDown(const KeySet& keys, Modifier modifier) const {
        return (keys & of(modifier)).any();
    }

    [[nodiscard]] bool areDown(const KeySet& keys, Modifier one, Modifier other) const {
        return areDown(keys, one) && areDown(keys, other);
    }

    /// Returns the flags of shift, control, option and command that `keys` make.
    [[nodiscard]] CGEventFlags flags(const KeySet& keys) const;

    /// Returns those flags of a chord for which the session has a key.
    [[nodiscard]] CGEventFlags possible(CGEventFlags flags) const { return flags & m_possible; }

private:
    std::array<KeySet, static_cast<std::size_t>(Modifier::Level3) + 1> m_keys;
    KeySet m_all;
    CGEventFlags m_possible = 0;
};

} // namespace pallistrom
