// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keys/KeyMap.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <set>

namespace pallistrom {

namespace {

TEST(KeyMap, goesBothWaysForEveryPair) {
    for (const auto& [code, virtualKeyCode] : KeyMap::all()) {
        EXPECT_EQ(KeyMap::virtualKeyCode(code), virtualKeyCode) << code;
        EXPECT_EQ(KeyMap::evdevCode(virtualKeyCode), code) << virtualKeyCode;
    }
}

TEST(KeyMap, namesNoKeyTwice) {
    std::set<EvdevCode> codes;
    std::set<std::int64_t> virtualKeyCodes;
    for (const auto& [code, virtualKeyCode] : KeyMap::all()) {
        EXPECT_TRUE(codes.insert(code).second) << code;
        EXPECT_TRUE(virtualKeyCodes.insert(virtualKeyCode).second) << virtualKeyCode;
    }
}

TEST(KeyMap, knowsTheKeysOfTheShortcuts) {
    EXPECT_EQ(KeyMap::virtualKeyCode(KEY_W), 13);
    EXPECT_EQ(KeyMap::virtualKeyCode(KEY_U), 32);
    EXPECT_EQ(KeyMap::virtualKeyCode(KEY_K), 40);
    EXPECT_EQ(KeyMap::virtualKeyCode(KEY_D), 2);
    EXPECT_EQ(KeyMap::evdevCode(51), KEY_BACKSPACE);
    EXPECT_EQ(KeyMap::evdevCode(117), KEY_DELETE);
    EXPECT_EQ(KeyMap::evdevCode(124), KEY_RIGHT);
    EXPECT_EQ(KeyMap::evdevCode(123), KEY_LEFT);
}

TEST(KeyMap, coversTheWholeKeyboard) {
    // A full ISO keyboard with its keypad; what has no virtual key code is named.
    const std::set<EvdevCode> withoutOne{KEY_SYSRQ, KEY_SCROLLLOCK};
    for (EvdevCode code = KEY_ESC; code <= KEY_F12; ++code) {
        const bool isNoKeyOfAKeyboard = code == 84 || code == KEY_ZENKAKUHANKAKU;
        if (!isNoKeyOfAKeyboard && !withoutOne.contains(code)) {
            EXPECT_TRUE(KeyMap::virtualKeyCode(code)) << code;
        }
    }
    for (const int code : {KEY_HOME,      KEY_END,     KEY_PAGEUP,    KEY_PAGEDOWN, KEY_INSERT,
                           KEY_DELETE,    KEY_UP,      KEY_DOWN,      KEY_LEFT,     KEY_RIGHT,
                           KEY_KPENTER,   KEY_KPSLASH, KEY_RIGHTCTRL, KEY_RIGHTALT, KEY_LEFTMETA,
                           KEY_RIGHTMETA, KEY_COMPOSE, KEY_102ND,     KEY_RO,       KEY_YEN,
                           KEY_HANGEUL,   KEY_HANJA,   KEY_F20,       KEY_MUTE,     KEY_VOLUMEUP}) {
        EXPECT_TRUE(KeyMap::virtualKeyCode(static_cast<EvdevCode>(code))) << code;
    }
}

TEST(KeyMap, hasNothingForKeysThatTheEngineCannotKnow) {
    for (const EvdevCode code : {EvdevCode{KEY_RESERVED},
                                 EvdevCode{KEY_PLAYPAUSE},
                                 EvdevCode{KEY_MICMUTE},
                                 EvdevCode{BTN_LEFT},
                                 EvdevCode{65535}}) {
        EXPECT_FALSE(KeyMap::virtualKeyCode(code)) << code;
    }
    for (const std::int64_t code : {-1, 52, 127, 128, 65536 + 13}) {
        EXPECT_FALSE(KeyMap::evdevCode(code)) << code;
    }
}

} // namespace

} // namespace pallistrom
