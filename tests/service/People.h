// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/session/LoginState.h"

namespace pallistrom {

// Who use the machine.
constexpr UserId ann = 1000;
constexpr UserId bob = 1001;

} // namespace pallistrom
