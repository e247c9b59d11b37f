// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/clients/Moment.h"

namespace pallistrom {

/// How many calls somebody may make: so many at once, and after that so many each second.
class CallBudget {
public:
    struct Allowance {
        double atOnce = 0;
        double eachSecond = 0;
    };

    explicit CallBudget(Allowance allowance) : m_allowance{allowance}, m_left{allowance.atOnce} {}

    /// Takes one call off the budget. Returns whether there was one left.
    [[nodiscard]] bool take(Moment now);

    /// Whether all is there that ever can be.
    [[nodiscard]] bool isFull(Moment now) const { return leftAt(now) >= m_allowance.atOnce; }

private:
    [[nodiscard]] double leftAt(Moment now) const;

    Allowance m_allowance;
    double m_left;
    Moment m_since{};
};

} // namespace pallistrom
