// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/KeyChord.h"

#include <cstdint>
#include <span>
#include <variant>

namespace pallistrom {

/// What a shortcut does when it fires: one of two cases.
class ShortcutAction {
public:
    /// The event itself becomes this key with exactly these modifiers.
    struct Rewrite {
        std::int64_t keyCode = 0;
        CGEventFlags flags = 0;
    };

    /// The press is swallowed and each chord is posted as a fresh press and release, in order.
    struct Sequence {
        /// Not owned: copies of an action share one list, which outlives them.
        std::span<const KeyChord> chords;
    };

    using Case = std::variant<Rewrite, Sequence>;

    static constexpr ShortcutAction rewrite(std::int64_t keyCode, CGEventFlags flags) {
        return ShortcutAction(Rewrite{keyCode, flags});
    }

    /// `chords` outlives the action and all of its copies.
    static constexpr ShortcutAction sequence(std::span<const KeyChord> chords) {
        return ShortcutAction(Sequence{chords});
    }

    [[nodiscard]] constexpr const Case& value() const { return m_value; }

private:
    constexpr explicit ShortcutAction(Case value) : m_value(value) {}

    Case m_value;
};

} // namespace pallistrom
