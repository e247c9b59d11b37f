// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/devices/Lights.h"

#include <gtest/gtest.h>

namespace pallistrom {

namespace {

TEST(Lights, followTheSession) {
    Lights lights;
    EXPECT_TRUE(lights.switchedBySession(LED_CAPSL, true));
    EXPECT_TRUE(lights.switchedBySession(LED_CAPSL, false));
}

TEST(Lights, areNotSwitchedToWhatTheyShow) {
    Lights lights;
    lights.start(Lights::Lit().set(LED_NUML));
    EXPECT_FALSE(lights.switchedBySession(LED_NUML, true));
    EXPECT_FALSE(lights.switchedBySession(LED_CAPSL, false));
}

TEST(Lights, passOnWhatTheKeyboardChangesItself) {
    Lights lights;
    EXPECT_TRUE(lights.changedOnKeyboard(LED_MUTE, true));
    EXPECT_FALSE(lights.switchedBySession(LED_MUTE, true)) << "the virtual one tells of it again";
}

TEST(Lights, doNotTakeTheirOwnEchoForNews) {
    Lights lights;
    EXPECT_TRUE(lights.switchedBySession(LED_CAPSL, true));
    EXPECT_FALSE(lights.changedOnKeyboard(LED_CAPSL, true));
}

TEST(Lights, doNotGoToAndFroForEverWhenSwitchedTwiceAtOnce) {
    Lights lights;
    EXPECT_TRUE(lights.switchedBySession(LED_CAPSL, true));
    EXPECT_TRUE(lights.switchedBySession(LED_CAPSL, false));
    EXPECT_FALSE(lights.changedOnKeyboard(LED_CAPSL, true));
    EXPECT_FALSE(lights.changedOnKeyboard(LED_CAPSL, false));
    EXPECT_TRUE(lights.changedOnKeyboard(LED_CAPSL, true)) << "this one is news";
}

TEST(Lights, areOnlyThoseThatThereAre) {
    Lights lights;
    EXPECT_FALSE(lights.switchedBySession(LED_CNT, true));
    EXPECT_FALSE(lights.changedOnKeyboard(LED_CNT, true));
}

} // namespace

} // namespace pallistrom
