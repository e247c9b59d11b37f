// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/clients/Standing.h"

namespace pallistrom {

Standing standingOf(UserId user, std::optional<Grant> grant, const LoginState& login) {
    if (login.active && login.active->user == user) {
        return Standing::Active;
    }
    if (!login.localUsers.contains(user)) {
        return Standing::Elsewhere;
    }
    return grant ? Standing::Granted : Standing::Local;
}

} // namespace pallistrom
