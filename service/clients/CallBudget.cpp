// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/clients/CallBudget.h"

#include <algorithm>

namespace pallistrom {

bool CallBudget::take(Moment now) {
    m_left = leftAt(now);
    m_since = now;
    if (m_left < 1) {
        return false;
    }
    m_left -= 1;
    return true;
}

double CallBudget::leftAt(Moment now) const {
    const std::chrono::duration<double> passed = now - m_since;
    return std::min(m_allowance.atOnce, m_left + passed.count() * m_allowance.eachSecond);
}

} // namespace pallistrom
