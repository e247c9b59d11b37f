// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keyboardservice/KeyboardInterface.h"
#include "service/grants/Grants.h"
#include "service/session/LoginState.h"

#include <optional>

namespace pallistrom {

/// Returns what a user with `grant` is told. It speaks of what can be, not of this moment: a locked
/// screen, a switch to another session and the like change nothing.
[[nodiscard]] KeyboardInterface::Access
accessOf(UserId user, std::optional<Grant> grant, const LoginState& login, bool isKeyboardPossible);

} // namespace pallistrom
