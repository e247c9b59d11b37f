// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace pallistrom {

/// Hands `url` to the program that is there for it. Returns whether one took it. Never waits for
/// it.
bool openURL(std::string_view url);

/// Returns whether the user wants no animations. Asked afresh before each one; never blocks.
bool accessibilityDisplayShouldReduceMotion();

} // namespace pallistrom
