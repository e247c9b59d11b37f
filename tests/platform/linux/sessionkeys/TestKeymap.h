// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/ModifierTable.h"

#include <map>
#include <string>
#include <vector>

namespace pallistrom {

/// A keymap as a session has it that was asked for these layouts and options: the text that a
/// compositor hands to its clients, compiled from the files of xkeyboard-config. Empty if there are
/// no such files, or they know no such layout.
[[nodiscard]] std::string keymapText(const std::string& layouts, const std::string& options);

/// What differs from the keys as they are printed. Keys that no keyboard has are left out.
using ModifierDifference = std::map<EvdevCode, Modifier>;

[[nodiscard]] ModifierDifference differenceFromStandard(const ModifierTable& table);

/// The options of xkeyboard-config whose group is one of `groups` ("ctrl"), as its list has them.
[[nodiscard]] std::vector<std::string> optionsOf(const std::vector<std::string>& groups);

} // namespace pallistrom
