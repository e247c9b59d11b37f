// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "engine/ShortcutLibrary.h"

#include "engine/KeyCode.h"

#include <algorithm>

namespace pallistrom::ShortcutLibrary {

namespace {

// Select to the end of the line, then delete the selection. With nothing to select, the plain
// delete takes the character before the cursor: nobody here looks at the text.
constexpr std::array deleteToLineEnd{
    KeyChord{.keyCode = KeyCode::right, .flags = kCGEventFlagMaskShift | kCGEventFlagMaskCommand},
    KeyChord{.keyCode = KeyCode::delete_, .flags = 0},
};

} // namespace

// Shift is forbidden nowhere, on purpose: control-shift-W deletes a word as well.
constinit const std::array<ShortcutDef, 4> all{
    ShortcutDef{
        .id = "ctrlW",
        .title = "Delete word",
        .subtitle = "Erase the word before the cursor",
        .keyLabel = "⌃W",
        .triggerKeyCode = KeyCode::w,
        .requiredFlags = kCGEventFlagMaskControl,
        .forbiddenFlags = kCGEventFlagMaskAlternate | kCGEventFlagMaskCommand,
        .action = ShortcutAction::rewrite(KeyCode::delete_, kCGEventFlagMaskAlternate),
        .defaultEnabled = true,
        .recommended = true,
    },
    ShortcutDef{
        .id = "ctrlU",
        .title = "Delete to line start",
        .subtitle = "Erase everything to the left of the cursor",
        .keyLabel = "⌃U",
        .triggerKeyCode = KeyCode::u,
        .requiredFlags = kCGEventFlagMaskControl,
        .forbiddenFlags = kCGEventFlagMaskAlternate | kCGEventFlagMaskCommand,
        .action = ShortcutAction::rewrite(KeyCode::delete_, kCGEventFlagMaskCommand),
        .defaultEnabled = true,
        .recommended = true,
    },
    ShortcutDef{
        .id = "ctrlK",
        .title = "Delete to line end",
        .subtitle = "Erase everything to the right of the cursor",
        .keyLabel = "⌃K",
        .triggerKeyCode = KeyCode::k,
        .requiredFlags = kCGEventFlagMaskControl,
        .forbiddenFlags = kCGEventFlagMaskAlternate | kCGEventFlagMaskCommand,
        .action = ShortcutAction::sequence(deleteToLineEnd),
        .defaultEnabled = false,
        .recommended = false,
    },
    ShortcutDef{
        .id = "altD",
        .title = "Delete word forward",
        .subtitle = "Erase the word after the cursor (blocks typing ∂)",
        .keyLabel = "⌥D",
        .triggerKeyCode = KeyCode::d,
        .requiredFlags = kCGEventFlagMaskAlternate,
        .forbiddenFlags = kCGEventFlagMaskControl | kCGEventFlagMaskCommand,
        .action = ShortcutAction::rewrite(KeyCode::forwardDelete, kCGEventFlagMaskAlternate),
        .defaultEnabled = false,
        .recommended = false,
    },
};

std::optional<ShortcutDef> shortcut(std::string_view id) {
    const auto* const found =
        std::find_if(all.begin(), all.end(), [id](const ShortcutDef& def) { return def.id == id; });
    if (found == all.end()) {
        return std::nullopt;
    }
    return *found;
}

} // namespace pallistrom::ShortcutLibrary
