// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/KeyMap.h"

#include <optional>
#include <string_view>

namespace pallistrom::XkbKeyNames {

/// Returns the key whose position XKB calls `name` ("AD02" is the second key of the row with the
/// tab key), if it is one that a shortcut could read or emit or a modifier.
[[nodiscard]] std::optional<EvdevCode> evdevCode(std::string_view name);

} // namespace pallistrom::XkbKeyNames
