// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ShortcutDef.h"

#include <span>
#include <string>
#include <string_view>

/// The one reader and writer of the persisted settings: a switch for each shortcut, and whether the
/// guide has been finished. Keeps nothing itself: every call asks the user defaults again. An id
/// that is no shortcut's names a switch of its own.
namespace pallistrom::Preferences {

inline constexpr std::string_view onboardingKey = "hasCompletedOnboarding";

/// Returns the key under which the switch of the shortcut `id` is stored.
[[nodiscard]] std::string key(std::string_view id);

/// Registers what the settings read as until the user changes them. To be called at each launch,
/// before the first read: until then everything reads false.
void registerDefaults(std::span<const ShortcutDef> shortcuts);

/// Returns the switch of the shortcut `id`. Allocates nothing for ids of up to 100 characters.
[[nodiscard]] bool isEnabled(std::string_view id);

/// Stores the switch of the shortcut `id`. Tells nobody.
void setEnabled(std::string_view id, bool enabled);

[[nodiscard]] bool hasCompletedOnboarding();
void setHasCompletedOnboarding(bool completed);

} // namespace pallistrom::Preferences
