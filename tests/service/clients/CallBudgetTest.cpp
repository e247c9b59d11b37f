// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/clients/CallBudget.h"

#include "service/clients/CallerBudgets.h"

#include <gtest/gtest.h>

#include <string>

namespace pallistrom {

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

int takeAll(CallBudget& budget, Moment now) {
    int count = 0;
    while (budget.take(now)) {
        ++count;
    }
    return count;
}

} // namespace

TEST(CallBudget, isSpentAndComesBackWithTime) {
    CallBudget budget({.atOnce = 10, .eachSecond = 4});
    EXPECT_EQ(takeAll(budget, seconds{1}), 10);
    EXPECT_FALSE(budget.take(seconds{1} + milliseconds{240}));
    EXPECT_EQ(takeAll(budget, seconds{2}), 4);
    EXPECT_EQ(takeAll(budget, seconds{100}), 10) << "no more than at first";
}

TEST(CallBudget, isFullUntilItIsUsedAndAfterAWhile) {
    CallBudget budget({.atOnce = 10, .eachSecond = 4});
    EXPECT_TRUE(budget.isFull(seconds{1}));
    EXPECT_TRUE(budget.take(seconds{1}));
    EXPECT_FALSE(budget.isFull(seconds{1}));
    EXPECT_TRUE(budget.isFull(seconds{2}));
}

TEST(CallerBudgets, ofOneAreSpentByThatOneAlone) {
    CallerBudgets budgets;
    int count = 0;
    while (budgets.take(":1.1", seconds{1})) {
        ++count;
    }
    EXPECT_EQ(count, CallerBudgets::ofOne.atOnce);
    EXPECT_TRUE(budgets.take(":1.2", seconds{1}));
}

TEST(CallerBudgets, areKeptForSoManyAtATime) {
    CallerBudgets budgets;
    for (std::size_t i = 0; i < CallerBudgets::mostCallers; ++i) {
        EXPECT_TRUE(budgets.take(":1." + std::to_string(i), seconds{1}));
    }
    EXPECT_FALSE(budgets.take(":1.9999", seconds{1}));
    EXPECT_TRUE(budgets.take(":1.9999", seconds{60})) << "the others have been quiet for long";
}

} // namespace pallistrom
