// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/onboarding/WelcomeStep.h"

#include "views/controls/SymbolView.h"

namespace pallistrom {

namespace {

constexpr int spacing = 18;
constexpr int symbolSize = 64;

} // namespace

WelcomeStep::WelcomeStep() : StepStack(spacing) {
    addCentred(new SymbolView("delete.left.fill", symbolSize, Tone::Tint));
    addCentredText("Welcome to Pallistrom", TextStyle::Greeting);
    addCentredText("Terminal-style text editing, everywhere on your Mac.\n"
                   "Delete words and lines with the keys your fingers already know.",
                   TextStyle::Body,
                   Tone::Secondary);
}

} // namespace pallistrom
