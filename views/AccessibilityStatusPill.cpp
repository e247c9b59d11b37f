// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/AccessibilityStatusPill.h"

#include "views/StateObserver.h"
#include "views/controls/AccessibleRole.h"
#include "views/controls/Dot.h"
#include "views/controls/Text.h"
#include "views/style/drawing.h"
#include "views/style/localized.h"
#include "views/style/stacks.h"

#include <QPainter>

namespace pallistrom {

namespace {

constexpr int dotDiameter = 9;
constexpr int spacing = 8;
constexpr QMargins padding(12, 6, 12, 6);
constexpr double backgroundOpacity = 0.6;

} // namespace

AccessibilityStatusPill::AccessibilityStatusPill(AppState& state)
    : m_state(state),
      m_dot(new Dot(dotDiameter)),
      m_label(new Text(QString(), TextStyle::Subheadline)) {
    setAccessibleRole(*this, QAccessible::StaticText, AccessibleParts::Hidden);
    auto* const row = makeRow(spacing, this);
    row->setContentsMargins(padding);
    row->addWidget(m_dot);
    row->addWidget(m_label);
    new StateObserver(
        state, [this] { readAgain(); }, this);
    readAgain();
}

void AccessibilityStatusPill::readAgain() {
    const bool trusted = m_state.isTrusted();
    m_dot->setTone(trusted ? Tone::Green : Tone::Orange);
    m_label->setTone(trusted ? Tone::Secondary : Tone::Primary);
    m_label->setText(
        localized(trusted ? "Accessibility access granted" : "Waiting for Accessibility access"));
    changeAccessibleName(*this, m_label->text());
}

void AccessibilityStatusPill::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    fillCapsule(
        painter, rect(), atOpacity(colourOf(Tone::QuaternaryLabel, palette()), backgroundOpacity));
}

} // namespace pallistrom
