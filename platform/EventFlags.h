// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace pallistrom {

/// The modifiers that are held while a key event happens: a set of bits. Bits without a name here
/// (numeric pad, device bits, ...) may be set in what arrives and mean nothing to this program.
/// Values: Core Graphics, CGEventTypes.h.
using CGEventFlags = std::uint64_t;

inline constexpr CGEventFlags kCGEventFlagMaskAlphaShift = 0x10000; ///< caps lock
inline constexpr CGEventFlags kCGEventFlagMaskShift = 0x20000;
inline constexpr CGEventFlags kCGEventFlagMaskControl = 0x40000;
inline constexpr CGEventFlags kCGEventFlagMaskAlternate = 0x80000; ///< option
inline constexpr CGEventFlags kCGEventFlagMaskCommand = 0x100000;

} // namespace pallistrom
