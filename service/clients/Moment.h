// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace pallistrom {

/// A time on a clock that never goes back. Since when it runs does not matter.
using Moment = std::chrono::microseconds;

} // namespace pallistrom
