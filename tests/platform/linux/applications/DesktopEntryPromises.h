// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/applications/DesktopEntryLines.h"

#include <string>
#include <string_view>

namespace pallistrom::DesktopEntryLines {

/// Returns which promise of DesktopEntryLines and of what is built on it does not hold for `text`
/// and a `change` of a key; an empty text if all do.
[[nodiscard]] std::string
brokenPromise(std::string_view text, std::string_view key, std::string_view value);

} // namespace pallistrom::DesktopEntryLines
