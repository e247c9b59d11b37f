// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Seat.h"

#include <cstddef>
#include <string>

namespace pallistrom::vm {

/// The emulated machine's own keyboard, whose keys are pressed from outside.
inline constexpr const char* hardwareKeyboard = "AT Translated Set 2 keyboard";

/// Has the hardware obey `command`, and returns what the session sees of it, once it is so many
/// keys.
[[nodiscard]] std::string shownBy(Seat& seat, const std::string& command, std::size_t keys);

} // namespace pallistrom::vm
