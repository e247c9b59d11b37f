// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <utility>

namespace pallistrom {

/// A key as Linux names it: KEY_* of linux/input-event-codes.h. Like a virtual key code, it names a
/// position on the keyboard.
using EvdevCode = std::uint16_t;

/// Which virtual key code is which key of a Linux keyboard. Each code on either side has at most
/// one on the other; a key without one is none of the engine's business.
namespace KeyMap {

[[nodiscard]] std::optional<std::int64_t> virtualKeyCode(EvdevCode code);

[[nodiscard]] std::optional<EvdevCode> evdevCode(std::int64_t virtualKeyCode);

/// All pairs.
[[nodiscard]] std::span<const std::pair<EvdevCode, std::int64_t>> all();

} // namespace KeyMap

} // namespace pallistrom
