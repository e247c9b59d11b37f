// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <optional>
#include <set>
#include <string>

namespace pallistrom {

/// A user, as the system numbers them.
using UserId = uid_t;

/// The session that the machine's own keyboard belongs to now.
struct ActiveSession {
    std::string id; ///< never that of an earlier session
    UserId user = 0;
    bool isLocked = false; ///< as far as the desktop says so; many do not

    friend bool operator==(const ActiveSession&, const ActiveSession&) = default;
};

/// Who is logged in where, as far as it matters to a keyboard.
struct LoginState {
    std::optional<ActiveSession> active; ///< none at a login screen, and where nobody knows
    std::set<UserId> localUsers;         ///< who has a session at this keyboard, active or not
    bool isGoingToSleep = false;

    friend bool operator==(const LoginState&, const LoginState&) = default;
};

} // namespace pallistrom
