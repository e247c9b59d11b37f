// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/OnboardingView.h"

#include "engine/Preferences.h"
#include "platform/Precondition.h"
#include "platform/Workspace.h"
#include "views/StepDots.h"
#include "views/controls/Divider.h"
#include "views/controls/PlainButton.h"
#include "views/controls/PushButton.h"
#include "views/onboarding/CrossFade.h"
#include "views/onboarding/FinishStep.h"
#include "views/onboarding/PermissionStep.h"
#include "views/onboarding/ShortcutsStep.h"
#include "views/onboarding/WelcomeStep.h"
#include "views/style/localized.h"
#include "views/style/stacks.h"

#include <QShortcut>
#include <QStackedWidget>

#include <limits>
#include <utility>

namespace pallistrom {

namespace {

constexpr QSize windowSize(560, 540);
constexpr int stepPadding = 32;
constexpr QMargins barPadding(24, 14, 24, 14);
constexpr int barSpacing = 8;

} // namespace

OnboardingView::OnboardingView(AppState& state, std::function<void()> onFinish)
    : m_onFinish(std::move(onFinish)),
      m_stepArea(new QWidget),
      m_steps(new QStackedWidget),
      m_back(new PlainButton(localized("Back"))),
      m_dots(new StepDots(m_step, lastStep + 1)),
      m_primary(new PushButton(QString(), PushButton::Kind::Default)) {
    setFixedSize(windowSize);
    // The order in which they are put in is the one in which Tab goes through them.
    for (QWidget* const step : {static_cast<QWidget*>(new WelcomeStep),
                                static_cast<QWidget*>(new PermissionStep(state)),
                                static_cast<QWidget*>(new ShortcutsStep),
                                static_cast<QWidget*>(new FinishStep(state))}) {
        m_steps->addWidget(step);
    }
    auto* const area = makeColumn(0, m_stepArea);
    area->setContentsMargins(stepPadding, stepPadding, stepPadding, stepPadding);
    area->addWidget(m_steps);

    auto* const column = makeColumn(0, this);
    column->addWidget(m_stepArea, 1);
    column->addWidget(new Divider);
    column->addLayout(makeBottomBar());
    showStep();
}

QLayout* OnboardingView::makeBottomBar() {
    auto* const bar = makeRow(barSpacing);
    bar->setContentsMargins(barPadding);
    bar->addWidget(m_back);
    bar->addStretch();
    bar->addWidget(m_dots);
    bar->addStretch();
    bar->addWidget(m_primary);
    m_primary->setObjectName(QStringLiteral("primary"));
    connect(m_back, &QPushButton::clicked, this, &OnboardingView::goBack);
    connect(m_primary, &QPushButton::clicked, this, &OnboardingView::goOn);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        // A shortcut comes before the control that has the focus, which might take the key for
        // itself. A key that is held down does not run through the guide.
        auto* const shortcut = new QShortcut(key, this);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, m_primary, [this] { m_primary->click(); });
    }
    return bar;
}

void OnboardingView::goBack() {
    precondition(m_step > std::numeric_limits<std::int64_t>::min(), "no step before this one");
    changeStep(m_step - 1);
}

void OnboardingView::goOn() {
    if (m_step == lastStep) {
        Preferences::setHasCompletedOnboarding(true);
        m_onFinish();
        return;
    }
    precondition(m_step < std::numeric_limits<std::int64_t>::max(), "no step after this one");
    changeStep(m_step + 1);
}

void OnboardingView::changeStep(std::int64_t step) {
    if (isVisible() && !accessibilityDisplayShouldReduceMotion()) {
        CrossFade::begin(*m_stepArea);
    }
    m_step = step;
    showStep();
}

void OnboardingView::showStep() {
    const bool isKnown = m_step >= 0 && m_step < lastStep;
    m_steps->setCurrentIndex(static_cast<int>(isKnown ? m_step : lastStep));
    m_back->setVisible(m_step >= 1);
    m_dots->setCurrent(m_step);
    m_primary->setText(localized(m_step == lastStep ? "Done" : "Continue"));
}

} // namespace pallistrom
