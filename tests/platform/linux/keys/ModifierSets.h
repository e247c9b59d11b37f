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

    /// Returns the keys that are some modifier in this session and none on a keyboard: nobody may
    /// press them but their owner.
    [[nodiscard]] const KeySet& foreign() const { return m_foreign; }

    /// Returns those flags of a chord for which the session has a key that may be pressed, or that
    /// is one of `shown` already.
    [[nodiscard]] CGEventFlags possible(CGEventFlags wanted, const KeySet& shown) const {
        return wanted & (m_possible | flags(shown));
    }

private:
    std::array<KeySet, static_cast<std::size_t>(Modifier::Level3) + 1> m_keys;
    KeySet m_all;
    KeySet m_foreign;
    CGEventFlags m_possible = 0;
};

} // namespace pallistrom
