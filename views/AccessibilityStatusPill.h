// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "shell/state/AppState.h"

#include <QWidget>

namespace pallistrom {

class Dot;
class Text;

/// Says in a capsule whether the program may use accessibility, and follows the state in that.
class AccessibilityStatusPill final : public QWidget {
    Q_OBJECT

public:
    explicit AccessibilityStatusPill(AppState& state = AppState::shared());

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void readAgain();

    AppState& m_state;
    Dot* m_dot;
    Text* m_label;
};

} // namespace pallistrom
