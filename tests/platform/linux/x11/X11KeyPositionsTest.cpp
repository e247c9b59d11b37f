// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11KeyPositions.h"

#include "platform/linux/keys/KeyMap.h"
#include "platform/linux/x11/XkbKeyNames.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <set>

namespace pallistrom {

namespace {

using Names = std::vector<X11KeyPositions::Named>;

void expectEveryKeycodeHasAKeyOfItsOwn(const X11KeyPositions& positions) {
    std::set<EvdevCode> codes;
    for (int keycode = 8; keycode <= 255; ++keycode) {
        const auto code = positions.evdevCode(static_cast<std::uint8_t>(keycode));
        ASSERT_TRUE(code) << keycode;
        EXPECT_TRUE(codes.insert(*code).second) << keycode;
        EXPECT_EQ(positions.keycode(*code), keycode);
    }
}

TEST(X11KeyPositions, areThoseOfEvdevWhereTheServerNamesNone) {
    const X11KeyPositions positions;
    EXPECT_EQ(positions.evdevCode(25), KEY_W);
    EXPECT_EQ(positions.keycode(KEY_BACKSPACE), 22);
    expectEveryKeycodeHasAKeyOfItsOwn(positions);
}

TEST(X11KeyPositions, goByNameWhateverTheNumber) {
    const X11KeyPositions positions(
        Names{{200, "AD02"}, {25, "BKSP"}, {22, "LCTL"}, {9, "DELE"}, {10, "END"}});
    EXPECT_EQ(positions.evdevCode(200), KEY_W);
    EXPECT_EQ(positions.keycode(KEY_W), 200);
    EXPECT_EQ(positions.keycode(KEY_BACKSPACE), 25);
    EXPECT_EQ(positions.keycode(KEY_LEFTCTRL), 22);
    expectEveryKeycodeHasAKeyOfItsOwn(positions);
}

TEST(X11KeyPositions, takeTheFirstOfTwoKeycodesWithOneName) {
    const X11KeyPositions positions(Names{{50, "AD02"}, {60, "AD02"}});
    EXPECT_EQ(positions.keycode(KEY_W), 50);
    EXPECT_NE(positions.evdevCode(60), KEY_W);
    expectEveryKeycodeHasAKeyOfItsOwn(positions);
}

TEST(X11KeyPositions, surviveNamesThatAreNone) {
    const X11KeyPositions positions(
        Names{{0, "AD02"}, {7, "AD07"}, {255, "????"}, {100, ""}, {101, "AD02XYZ"}});
    EXPECT_EQ(positions.keycode(KEY_W), 25);
    EXPECT_FALSE(positions.evdevCode(7));
    expectEveryKeycodeHasAKeyOfItsOwn(positions);
}

TEST(X11KeyPositions, haveNoKeycodeForKeysAboveThoseOfX) {
    const X11KeyPositions positions;
    EXPECT_FALSE(positions.keycode(256));
    EXPECT_FALSE(positions.keycode(65535));
}

TEST(XkbKeyNames, coverEveryKeyThatTheEngineKnows) {
    std::set<EvdevCode> named;
    for (const char* const name :
         {"AD02", "AD07", "AC08", "AC03", "BKSP", "DELE", "HOME", "END",  "LEFT", "RGHT",
          "LFSH", "RTSH", "LCTL", "RCTL", "LALT", "RALT", "LWIN", "RWIN", "CAPS", "INS"}) {
        const auto code = XkbKeyNames::evdevCode(name);
        ASSERT_TRUE(code) << name;
        EXPECT_TRUE(named.insert(*code).second) << name;
        EXPECT_TRUE(KeyMap::virtualKeyCode(*code)) << name;
    }
    EXPECT_FALSE(XkbKeyNames::evdevCode(""));
    EXPECT_FALSE(XkbKeyNames::evdevCode("ad02"));
}

} // namespace

} // namespace pallistrom
