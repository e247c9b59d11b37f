// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/onboarding/PermissionStep.h"

#include "shell/state/AppState.h"
#include "views/AccessibilityStatusPill.h"
#include "views/StateObserver.h"
#include "views/controls/PushButton.h"
#include "views/controls/SymbolView.h"
#include "views/openAccessibilitySettings.h"
#include "views/style/localized.h"

namespace pallistrom {

namespace {

constexpr int spacing = 16;
constexpr int symbolSize = 52;

} // namespace

PermissionStep::PermissionStep(AppState& state) : StepStack(spacing), m_state(state) {
    addCentred(new SymbolView("lock.shield", symbolSize, Tone::Tint));
    addCentredText("Grant Accessibility access", TextStyle::Title2Bold);
    addCentredText("Pallistrom watches for your shortcut keys and turns them into delete commands. "
                   "macOS requires Accessibility permission for this — it never logs or sends your "
                   "keystrokes anywhere.",
                   TextStyle::Body,
                   Tone::Secondary);
    addCentred(new AccessibilityStatusPill);
    auto* const open =
        new PushButton(localized("Open Accessibility Settings…"), PushButton::Kind::Large);
    connect(open, &QPushButton::clicked, this, &openAccessibilitySettings);
    addCentred(open);
    m_hint = addCentredText("Toggle “Pallistrom” on in the list, then come back here.",
                            TextStyle::Caption,
                            Tone::Secondary);
    new StateObserver(
        state, [this] { readAgain(); }, this);
    readAgain();
}

void PermissionStep::readAgain() {
    m_hint->setVisible(!m_state.isTrusted());
}

} // namespace pallistrom
