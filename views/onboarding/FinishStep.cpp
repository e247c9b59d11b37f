// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/onboarding/FinishStep.h"

#include "views/LoginToggle.h"
#include "views/controls/SymbolView.h"

namespace pallistrom {

namespace {

constexpr int spacing = 16;
constexpr int symbolSize = 56;
constexpr int aboveToggle = 6;

} // namespace

FinishStep::FinishStep(AppState& state) : StepStack(spacing) {
    addCentred(new SymbolView("checkmark.circle.fill", symbolSize, Tone::Green));
    addCentredText("You're all set", TextStyle::Title2Bold);
    addCentredText("Pallistrom lives in your menu bar. Open it anytime to tweak shortcuts.",
                   TextStyle::Body,
                   Tone::Secondary);
    auto* const toggle = new LoginToggle(state, Toggle::Width::Fitting);
    toggle->setContentsMargins(0, aboveToggle, 0, 0);
    addCentred(toggle);
}

} // namespace pallistrom
