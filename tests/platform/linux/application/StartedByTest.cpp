// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/StartedBy.h"

#include <gtest/gtest.h>

#include <array>

namespace pallistrom {

namespace {

class StartedByTest : public testing::Test {
protected:
    StartedByTest() {
        qunsetenv("XDG_ACTIVATION_TOKEN");
        qunsetenv("DESKTOP_STARTUP_ID");
    }

    static constexpr std::array plainly{"pallistrom"};
};

TEST_F(StartedByTest, nobodyAtLogin) {
    const StartedBy start = StartedBy::read(plainly);
    EXPECT_FALSE(start.isAskedFor());
    EXPECT_FALSE(start.isBusService);
}

TEST_F(StartedByTest, aLauncherOnX11OrWayland) {
    qputenv("DESKTOP_STARTUP_ID", "x11");
    EXPECT_TRUE(StartedBy::read(plainly).isAskedFor());
    EXPECT_EQ(StartedBy::read(plainly).activationToken, "x11");
    qputenv("XDG_ACTIVATION_TOKEN", "wayland");
    EXPECT_EQ(StartedBy::read(plainly).activationToken, "wayland");
}

TEST_F(StartedByTest, theSessionBus) {
    constexpr std::array arguments{"pallistrom", "--gapplication-service"};
    const StartedBy start = StartedBy::read(arguments);
    EXPECT_TRUE(start.isBusService);
    EXPECT_TRUE(start.isAskedFor());
}

} // namespace

} // namespace pallistrom
