// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ScriptCase.h"

#include <vector>

/// How programs that change keys are known to fail, each failure named, with what is to happen in
/// its place: with the shortcuts of the catalogue, all switched on, where rewritten keys can be
/// held.
namespace pallistrom::KnownFailures {

[[nodiscard]] std::vector<ScriptCase> stuckKeys();

[[nodiscard]] std::vector<ScriptCase> unwantedKeys();

[[nodiscard]] std::vector<ScriptCase> shortcutsThatDoNotFire();

} // namespace pallistrom::KnownFailures
