// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace pallistrom {

/// Writes one line to the system log. `line` begins with the product's name and a colon
/// ("Pallistrom: ..."), has no line feed, and never says which keys were pressed.
void NSLog(std::string_view line);

} // namespace pallistrom
