// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/TapWay.h"

#include <optional>
#include <span>

namespace pallistrom {

/// Every way to the keys that this program knows, best first. They live as long as the program.
std::span<TapWay* const> tapWays();

/// Returns what keeps this session's keys from being filtered: what is in the best way, if none can
/// be taken.
std::optional<Obstacle> obstacleOfSession();

/// Returns whether the way that is taken can tell which application is in front, so that terminals
/// keep their keys.
bool knowsWhoIsInFront();

} // namespace pallistrom
