// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "views/onboarding/StepStack.h"

namespace pallistrom {

class AppState;

/// Says why the permission is needed, whether it is there, and leads to where it is given.
class PermissionStep final : public StepStack {
    Q_OBJECT

public:
    explicit PermissionStep(AppState& state);

private:
    void readAgain();

    AppState& m_state;
    Text* m_hint;
};

} // namespace pallistrom
