// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/clients/CallBudget.h"

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace pallistrom {

/// The budgets of all who call, known or not. How many callers it remembers is limited as well.
class CallerBudgets {
public:
    static constexpr std::size_t mostCallers = 512;
    /// A desktop program makes a handful of calls when it starts and one now and then afterwards.
    static constexpr CallBudget::Allowance ofOne{.atOnce = 64, .eachSecond = 32};

    /// Takes one call off the budget of `caller`. Returns whether it may be heard.
    [[nodiscard]] bool take(std::string_view caller, Moment now);

private:
    [[nodiscard]] bool makeRoom(Moment now);

    std::map<std::string, CallBudget, std::less<>> m_budgets;
};

} // namespace pallistrom
