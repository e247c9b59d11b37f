// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "DeliveryScript.h"

#include <optional>

namespace pallistrom {

/// Returns what goes out in place of a key event with the modifiers `flags` by the rules of the
/// catalogue, all switched on; nothing if it stays untouched.
[[nodiscard]] std::optional<OwnReplacement> catalogueReplacement(const KeyScript::Event& event,
                                                                 CGEventFlags flags);

} // namespace pallistrom
