// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>

namespace pallistrom {

/// Returns the window text `key`, which is the English text, as the system's table has it.
[[nodiscard]] QString localized(std::string_view key);

/// Returns a text that is shown as it stands.
[[nodiscard]] QString verbatim(std::string_view text);

} // namespace pallistrom
