// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "views/onboarding/StepStack.h"

namespace pallistrom {

/// Greets.
class WelcomeStep final : public StepStack {
    Q_OBJECT

public:
    WelcomeStep();
};

} // namespace pallistrom
