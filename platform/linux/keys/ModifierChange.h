// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventFlags.h"
#include "platform/linux/keys/ModifierState.h"
#include "platform/linux/keys/OutputKeys.h"

/// How the modifiers of the output are changed around a chord without anybody seeing more than the
/// chord. Caps lock is never touched: it does not matter to a chord, and a press would toggle it.
namespace pallistrom::ModifierChange {

/// Returns the modifier keys that are to be down for a chord with exactly `flags`: those that are
/// down in `output` already and, for each modifier that is missing, a key that is physically held
/// or else any key that does it.
[[nodiscard]] KeySet
keysFor(CGEventFlags flags, const ModifierState& physical, const OutputKeys& output);

/// Returns whether the modifier keys that are down in `output` are other than those of `wanted`.
[[nodiscard]] bool
isNeeded(const KeySet& wanted, const ModifierTable& table, const OutputKeys& output);

/// Makes exactly those of `target` that are modifier keys down in `output`, but for keys that are
/// up and must not be pressed.
///
/// Option (Alt) and command (Super) change only while a control is down, since a tap of one of them
/// alone opens menus and overviews. Control and shift, which together switch layouts, come together
/// only if both are wanted.
void apply(const KeySet& target, const ModifierTable& table, OutputKeys& output);

} // namespace pallistrom::ModifierChange
