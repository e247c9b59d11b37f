// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/SystemUpdateClock.h"

#include "EventLoop.h"

#include <gtest/gtest.h>

#include <ctime>
#include <string>

namespace pallistrom {

namespace {

using namespace std::chrono_literals;

TEST(SystemUpdateClock, showsTheTime) {
    const auto before = std::time(nullptr);
    const auto now = SystemUpdateClock().now();
    EXPECT_GE(now, before);
    EXPECT_LE(now, std::time(nullptr));
}

TEST(SystemUpdateClock, ringsOnceAndFromTheEventLoop) {
    EventLoop loop;
    SystemUpdateClock clock;
    int rings = 0;
    clock.wakeIn(0s, [&] { ++rings; });
    EXPECT_EQ(rings, 0);
    EXPECT_TRUE(loop.runUntil([&] { return rings > 0; }));
    loop.drain();
    EXPECT_EQ(rings, 1);
}

TEST(SystemUpdateClock, hasOneAlarm) {
    EventLoop loop;
    SystemUpdateClock clock;
    std::string rung;
    clock.wakeIn(0s, [&] { rung += "first"; });
    clock.wakeIn(1h, [&] { rung += "second"; });
    loop.drain();
    EXPECT_EQ(rung, "");
    clock.wakeIn(0s, [&] {
        rung += "third";
        clock.wakeIn(0s, [&] { rung += "fourth"; });
    });
    EXPECT_TRUE(loop.runUntil([&] { return rung == "thirdfourth"; })) << rung;
}

TEST(SystemUpdateClock, canBeStopped) {
    EventLoop loop;
    SystemUpdateClock clock;
    bool hasRung = false;
    clock.stop();
    clock.wakeIn(0s, [&] { hasRung = true; });
    clock.stop();
    loop.drain();
    EXPECT_FALSE(hasRung);
}

} // namespace

} // namespace pallistrom
