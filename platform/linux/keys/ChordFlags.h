// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventFlags.h"

/// The flags of chords by short names, for tables of chords.
namespace pallistrom::ChordFlags {

inline constexpr CGEventFlags shift = kCGEventFlagMaskShift;
inline constexpr CGEventFlags control = kCGEventFlagMaskControl;
inline constexpr CGEventFlags option = kCGEventFlagMaskAlternate;
inline constexpr CGEventFlags command = kCGEventFlagMaskCommand;

} // namespace pallistrom::ChordFlags
