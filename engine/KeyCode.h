// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// Virtual key codes of the keys that shortcuts read or emit. A code names a position on the
/// keyboard, not a character: it stays the same whatever layout is active.
/// Values: Carbon, HIToolbox/Events.h.
namespace pallistrom::KeyCode {

inline constexpr std::int64_t w = 13;
inline constexpr std::int64_t u = 32;
inline constexpr std::int64_t k = 40;
inline constexpr std::int64_t d = 2;
inline constexpr std::int64_t delete_ = 51; ///< erases to the left of the cursor
inline constexpr std::int64_t forwardDelete = 117;
inline constexpr std::int64_t right = 124;
inline constexpr std::int64_t left = 123;

} // namespace pallistrom::KeyCode
