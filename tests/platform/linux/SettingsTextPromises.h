// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/SettingsText.h"

#include <string>
#include <string_view>

namespace pallistrom::SettingsText {

/// Returns which promise of SettingsText does not hold for `text`, damaged or not, and `changes`;
/// an empty text if all do.
[[nodiscard]] std::string brokenPromise(std::string_view text, const Values& changes);

} // namespace pallistrom::SettingsText
