// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/grants/Grants.h"
#include "service/session/LoginState.h"

#include <cstdint>
#include <optional>

namespace pallistrom {

/// How much a user's connections matter where there is no room for all, the least first.
enum class Standing : std::uint8_t {
    Elsewhere, ///< has no session at this keyboard
    Local,
    Granted, ///< is local as well
    Active,  ///< sits in front of it now
};

[[nodiscard]] Standing standingOf(UserId user, std::optional<Grant> grant, const LoginState& login);

} // namespace pallistrom
