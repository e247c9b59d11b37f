// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace pallistrom {

/// Why a way to the keys cannot be taken.
enum class Obstacle : std::uint8_t {
    WaylandSession, ///< where an X server sees the keys of some windows only
    NoDisplay,      ///< no X server that can be reached
    NoXTest,        ///< an X server that lets nobody send keys
};

} // namespace pallistrom
