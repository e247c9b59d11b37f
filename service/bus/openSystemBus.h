// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/bus/Handles.h"

namespace pallistrom {

/// Makes `bus` a connection to the system bus, without waiting for its hello. Returns a negative
/// errno if there is no bus.
[[nodiscard]] int openSystemBus(OwnedBus& bus);

} // namespace pallistrom
