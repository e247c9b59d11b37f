// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/FrontRule.h"

#include <utility>

namespace pallistrom {

FrontRule::FrontRule(Classify classify) : m_classify(std::move(classify)) {}

void FrontRule::take(const FrontReport& report) {
    switch (report.kind) {
    case FrontReport::Kind::Window:
        m_last = m_classify(report.window);
        m_application = m_last;
        return;
    case FrontReport::Kind::Nobody:
        m_application = m_last;
        return;
    case FrontReport::Kind::Unknown:
        m_application =
            m_last == FrontApplication::KeepsItsKeys ? std::optional(m_last) : std::nullopt;
        return;
    }
}

} // namespace pallistrom
