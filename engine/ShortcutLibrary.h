// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ShortcutDef.h"

#include <array>
#include <optional>
#include <string_view>

/// The built-in shortcuts. They are fixed: people can only switch them on and off.
namespace pallistrom::ShortcutLibrary {

/// All shortcuts, in the order in which they are matched and listed.
///
/// What a shortcut emits comes back through our own tap unmarked, so no emitted key code may be the
/// trigger of any shortcut.
extern const std::array<ShortcutDef, 4> all;

/// Returns the first shortcut whose id is exactly `id`, if there is one.
[[nodiscard]] std::optional<ShortcutDef> shortcut(std::string_view id);

} // namespace pallistrom::ShortcutLibrary
