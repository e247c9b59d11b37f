// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "views/onboarding/StepStack.h"

namespace pallistrom {

class AppState;

/// Says where the program is from now on, and lets it start at login.
class FinishStep final : public StepStack {
    Q_OBJECT

public:
    explicit FinishStep(AppState& state);
};

} // namespace pallistrom
