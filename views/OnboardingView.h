// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "shell/state/AppState.h"

#include <QWidget>

#include <cstdint>
#include <functional>

class QStackedWidget;

namespace pallistrom {

class PlainButton;
class PushButton;
class StepDots;

/// The guide of the first launch, in four steps. Keeps nothing but the number of the step on show:
/// all that is chosen in it is written at once. Closing its window is left to others.
class OnboardingView final : public QWidget {
    Q_OBJECT

public:
    static constexpr std::int64_t lastStep = 3;

    /// `onFinish` is called each time "Done" is pressed.
    OnboardingView(AppState& state, std::function<void()> onFinish);

    [[nodiscard]] std::int64_t step() const { return m_step; }

private:
    [[nodiscard]] QLayout* makeBottomBar();
    void goBack();
    void goOn();
    void changeStep(std::int64_t step);
    void showStep();

    std::int64_t m_step = 0;
    std::function<void()> m_onFinish;
    QWidget* m_stepArea;
    QStackedWidget* m_steps;
    PlainButton* m_back;
    StepDots* m_dots;
    PushButton* m_primary;
};

} // namespace pallistrom
