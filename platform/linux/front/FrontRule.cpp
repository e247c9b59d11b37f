// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/FrontRule.h"

#include <utility>

namespace pallistrom {

FrontRule::FrontRule(Classify classify) : m_classify(std::move(classify)) {}

void FrontRule::take(const FrontReport& report) {
    m_kind = report.kind;
    if (report.kind == FrontReport::Kind::Window) {
        m_last = report;
    }
}

std::optional<FrontApplication> FrontRule::application() const {
    auto last = FrontApplication::TakesEditingKeys;
    if (m_last.isInTerminal) {
        last = FrontApplication::KeepsItsKeys;
    } else if (m_last.kind == FrontReport::Kind::Window) {
        last = m_classify(m_last.window);
    }
    const bool isKnown = m_kind != FrontReport::Kind::Unknown;
    return isKnown || last == FrontApplication::KeepsItsKeys ? std::optional(last) : std::nullopt;
}

} // namespace pallistrom
