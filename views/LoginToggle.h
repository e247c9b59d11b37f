// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "views/controls/Toggle.h"

namespace pallistrom {

class AppState;

/// The switch for starting at login, in both windows. It shows what the system has made of a click.
class LoginToggle final : public Toggle {
    Q_OBJECT

public:
    LoginToggle(AppState& state, Width width);
};

} // namespace pallistrom
