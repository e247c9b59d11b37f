// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/UpdateSchedule.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

namespace pallistrom {

namespace {

using namespace std::chrono_literals;
using UpdateSchedule::afterFailure;
using UpdateSchedule::believable;
using UpdateSchedule::interval;
using UpdateSchedule::wait;

constexpr std::int64_t now = 1800000000;
constexpr auto day = 86400s;

TEST(UpdateSchedule, isDailyAndAtMostHourly) {
    EXPECT_EQ(interval("86400"), 24h);
    EXPECT_EQ(interval("604800"), 168h);
    EXPECT_EQ(interval("3600"), 1h);
    EXPECT_EQ(interval("3599"), 1h);
    EXPECT_EQ(interval("0"), 1h);
    EXPECT_EQ(interval("-5"), 1h);
    for (const auto* const text : {"", "daily", "86400 s", "99999999999999999999"}) {
        EXPECT_EQ(interval(text), 24h) << text;
    }
}

TEST(UpdateSchedule, hasAFirstCheckAtOnce) {
    EXPECT_EQ(wait(std::nullopt, now, day), 0s);
}

TEST(UpdateSchedule, waitsForTheRestOfTheInterval) {
    EXPECT_EQ(wait(now, now, day), day);
    EXPECT_EQ(wait(now - 1000, now, day), day - 1000s);
    EXPECT_EQ(wait(now - 86399, now, day), 1s);
    EXPECT_EQ(wait(now - 86400, now, day), 0s);
    EXPECT_EQ(wait(now - 10 * 86400, now, day), 0s);
    EXPECT_EQ(wait(0, now, day), 0s);
}

TEST(UpdateSchedule, doesNotWaitForAClockThatWasSetBack) {
    EXPECT_EQ(wait(now + 1000, now, day), day);
    EXPECT_EQ(wait(std::numeric_limits<std::int64_t>::max(), now, day), day);
    EXPECT_EQ(believable(now + 1000, now), now);
    EXPECT_EQ(believable(now - 1000, now), now - 1000);
    EXPECT_EQ(believable(std::nullopt, now), std::nullopt);
}

TEST(UpdateSchedule, triesAgainAnHourAfterAFailure) {
    EXPECT_EQ(wait(afterFailure(now, day), now, day), 1h);
    EXPECT_EQ(wait(afterFailure(now, 1h), now, 1h), 1h);
}

TEST(UpdateSchedule, canCopeWithAnyTimes) {
    for (const std::int64_t last : {std::numeric_limits<std::int64_t>::max(), std::int64_t{0}}) {
        for (const auto& text : {"99999999999999", "9223372036854775807", "1"}) {
            const auto between = interval(text);
            const auto result = wait(last, now, between);
            EXPECT_GE(result, 0s);
            EXPECT_LE(result, between);
        }
    }
}

} // namespace

} // namespace pallistrom
