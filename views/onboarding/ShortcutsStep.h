// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "views/onboarding/StepStack.h"

namespace pallistrom {

/// Lets the user choose among the shortcuts.
class ShortcutsStep final : public StepStack {
    Q_OBJECT

public:
    ShortcutsStep();
};

} // namespace pallistrom
