// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/RetryWait.h"

#include <gtest/gtest.h>

#include <vector>

namespace pallistrom {

namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

TEST(RetryWait, doublesUpToTheLongest) {
    RetryWait wait;
    for (const milliseconds expected :
         std::vector<milliseconds>{1s, 2s, 4s, 8s, 16s, 32s, 60s, 60s}) {
        EXPECT_EQ(wait.after(0ms), expected);
    }
}

TEST(RetryWait, isNotImpressedByWhatComesUpAndBreaksAgain) {
    RetryWait wait;
    EXPECT_EQ(wait.after(300ms), 1s);
    EXPECT_EQ(wait.after(59s), 2s);
    EXPECT_EQ(wait.after(300ms), 4s);
}

TEST(RetryWait, beginsAnewAfterWhatHasHeld) {
    RetryWait wait;
    static_cast<void>(wait.after(0ms));
    static_cast<void>(wait.after(0ms));
    EXPECT_EQ(wait.after(RetryWait::longest), RetryWait::shortest);
    EXPECT_EQ(wait.after(0ms), 2 * RetryWait::shortest);
}

} // namespace

} // namespace pallistrom
