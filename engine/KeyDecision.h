// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ShortcutDef.h"

#include <concepts>
#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

namespace pallistrom {

enum class KeyDirection : std::uint8_t {
    Down, ///< a press, or a repeat of it
    Up,
};

/// What a key event is decided by.
struct KeyInput {
    std::int64_t keyCode = 0;
    CGEventFlags flags = 0;
    KeyDirection direction = KeyDirection::Down;
};

/// The event goes on as it is.
struct PassUnchanged {};

/// The event goes on as another key.
struct ChangeInto {
    std::int64_t keyCode = 0;
    CGEventFlags flags = 0;
};

/// The event is dropped, once a press and a release of each chord have been posted, in order.
struct DropAfterPosting {
    std::span<const KeyChord> chords;
};

using KeyDecision = std::variant<PassUnchanged, ChangeInto, DropAfterPosting>;

/// Returns whether the modifiers `flags` let `shortcut` fire. Those that it neither requires nor
/// forbids do not matter.
[[nodiscard]] constexpr bool modifiersMatch(const ShortcutDef& shortcut, CGEventFlags flags) {
    return (flags & shortcut.requiredFlags) == shortcut.requiredFlags &&
           (flags & shortcut.forbiddenFlags) == 0;
}

/// Returns what `shortcut` does to an event that has fired it.
[[nodiscard]] constexpr KeyDecision applied(const ShortcutDef& shortcut, KeyDirection direction) {
    const auto& action = shortcut.action.value();
    if (const auto* const rewrite = std::get_if<ShortcutAction::Rewrite>(&action)) {
        return ChangeInto{rewrite->keyCode, rewrite->flags};
    }
    if (direction == KeyDirection::Up) {
        return DropAfterPosting{};
    }
    return DropAfterPosting{std::get<ShortcutAction::Sequence>(action).chords};
}

/// Decides about one key event by the first of `shortcuts` that is switched on and matches.
///
/// `isEnabled` is asked for the switch of each shortcut that is examined, in order, before anything
/// else of it is looked at, and for none after the match. Nothing is remembered from one event to
/// the next: a press and its release are decided each by the modifiers of its own moment.
template<std::predicate<std::string_view> IsEnabled>
[[nodiscard]] constexpr KeyDecision
decide(std::span<const ShortcutDef> shortcuts, const KeyInput& input, const IsEnabled& isEnabled) {
    for (const ShortcutDef& shortcut : shortcuts) {
        if (isEnabled(shortcut.id) && input.keyCode == shortcut.triggerKeyCode &&
            modifiersMatch(shortcut, input.flags)) {
            return applied(shortcut, input.direction);
        }
    }
    return PassUnchanged{};
}

} // namespace pallistrom
