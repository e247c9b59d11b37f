// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "TestKeymap.h"

#include <map>
#include <string>

namespace pallistrom {

/// What each option of the groups ctrl, altwin, caps and lv3 makes of the keys, by its own words
/// and the symbols that it gives them.
[[nodiscard]] const std::map<std::string, ModifierDifference>& differencesByOption();

} // namespace pallistrom
