// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/StepDots.h"

#include "platform/Precondition.h"
#include "views/controls/AccessibleRole.h"
#include "views/controls/Dot.h"
#include "views/style/localized.h"
#include "views/style/stacks.h"

namespace pallistrom {

namespace {

constexpr int diameter = 7;
constexpr int spacing = 7;
constexpr double currentOpacity = 0.8;
constexpr double otherOpacity = 0.3;

} // namespace

StepDots::StepDots(std::int64_t current, std::int64_t total) {
    precondition(total >= 0, "a negative number of steps");
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleRole(*this, QAccessible::StaticText, AccessibleParts::Hidden);
    auto* const row = makeRow(spacing, this);
    for (std::int64_t index = 0; index < total; ++index) {
        m_dots.push_back(new Dot(diameter));
        row->addWidget(m_dots.back());
    }
    setCurrent(current);
}

void StepDots::setCurrent(std::int64_t current) {
    std::int64_t index = 0;
    for (Dot* const dot : m_dots) {
        if (index == current) {
            dot->setTone(Tone::Primary, currentOpacity);
        } else {
            dot->setTone(Tone::Secondary, otherOpacity);
        }
        ++index;
    }
    changeAccessibleName(
        *this, localized("Step %1 of %2").arg(current + 1).arg(static_cast<qint64>(m_dots.size())));
}

} // namespace pallistrom
