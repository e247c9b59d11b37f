// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ViewTest.h"
#include "views/OnboardingView.h"
#include "views/StepDots.h"
#include "views/controls/Dot.h"
#include "views/controls/PlainButton.h"
#include "views/controls/PushButton.h"

#include <memory>

namespace pallistrom {

/// The guide, and how one goes through it.
class OnboardingTest : public ViewTest {
protected:
    /// Makes the guide and shows it.
    OnboardingView& open() {
        view = std::make_unique<OnboardingView>(state, [this] { ++finished; });
        show(*view);
        return *view;
    }

    /// Goes on until `step` is on show.
    OnboardingView& openAt(std::int64_t step) {
        open();
        while (view->step() < step) {
            primary().click();
        }
        settle();
        return *view;
    }

    PushButton& primary() { return *view->findChild<PushButton*>(QStringLiteral("primary")); }

    PlainButton& back() { return only<PlainButton>(*view); }

    /// Returns the index of the dot that is highlighted.
    std::int64_t highlightedDot() {
        const auto dots = only<StepDots>(*view).findChildren<Dot*>();
        for (qsizetype index = 0; index < dots.size(); ++index) {
            if (dots.at(index)->tone() == Tone::Primary) {
                return index;
            }
        }
        return -1;
    }

    std::unique_ptr<OnboardingView> view;
    int finished = 0;
};

} // namespace pallistrom
