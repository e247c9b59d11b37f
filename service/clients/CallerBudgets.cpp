// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/clients/CallerBudgets.h"

namespace pallistrom {

bool CallerBudgets::take(std::string_view caller, Moment now) {
    auto found = m_budgets.find(caller);
    if (found == m_budgets.end()) {
        if (!makeRoom(now)) {
            return false;
        }
        found = m_budgets.emplace(caller, CallBudget{ofOne}).first;
    }
    return found->second.take(now);
}

// A full budget is as good as none, so whoever has been quiet for a while can be forgotten.
bool CallerBudgets::makeRoom(Moment now) {
    if (m_budgets.size() >= mostCallers) {
        std::erase_if(m_budgets, [now](const auto& entry) { return entry.second.isFull(now); });
    }
    return m_budgets.size() < mostCallers;
}

} // namespace pallistrom
