// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/clients/Users.h"
#include "service/grants/GrantStore.h"
#include "service/session/LoginState.h"

namespace pallistrom {

/// All that the service knows of people.
struct ServiceState {
    GrantStore grants;
    Users users{};
    LoginState login{};
};

} // namespace pallistrom
