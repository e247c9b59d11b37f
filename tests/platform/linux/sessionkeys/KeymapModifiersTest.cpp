// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sessionkeys/KeymapModifiers.h"

#include "TestKeymap.h"
#include "platform/linux/sessionkeys/Keymap.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <string>

namespace pallistrom {

namespace {

using enum Modifier;

class KeymapModifiers : public testing::Test {
protected:
    void SetUp() override {
        if (keymapText("us", "").empty()) {
            GTEST_SKIP() << "not installed: xkeyboard-config";
        }
    }

    static ModifierDifference difference(const std::string& layouts, const std::string& options) {
        const auto keymap = Keymap::read(keymapText(layouts, options));
        EXPECT_TRUE(keymap);
        return keymap ? differenceFromStandard(modifiersOf(*keymap)) : ModifierDifference();
    }
};

TEST_F(KeymapModifiers, areWhatIsPrintedOnAnAmericanKeyboard) {
    EXPECT_EQ(difference("us", ""), ModifierDifference());
}

TEST_F(KeymapModifiers, haveTheRightAltOnlyWhereItIsAlt) {
    EXPECT_EQ(difference("de", ""), (ModifierDifference{{KEY_RIGHTALT, Level3}}));
    EXPECT_EQ(difference("de", "lv3:ralt_alt"), ModifierDifference());
}

TEST_F(KeymapModifiers, haveAKeyThatChoosesSymbolsInAnyOfTheLayouts) {
    EXPECT_EQ(difference("us,de", ""), (ModifierDifference{{KEY_RIGHTALT, Level3}}));
    EXPECT_EQ(difference("de,us", ""), (ModifierDifference{{KEY_RIGHTALT, Level3}}));
}

TEST_F(KeymapModifiers, moveInEachOfSeveralLayouts) {
    EXPECT_EQ(difference("us,ru,gr", "ctrl:nocaps,grp:alt_shift_toggle").at(KEY_CAPSLOCK), Control);
}

TEST_F(KeymapModifiers, followSeveralOptionsAtOnce) {
    EXPECT_EQ(difference("us", "ctrl:swapcaps,altwin:swap_lalt_lwin,lv3:switch"),
              (ModifierDifference{{KEY_CAPSLOCK, Control},
                                  {KEY_LEFTCTRL, CapsLock},
                                  {KEY_LEFTALT, Command},
                                  {KEY_LEFTMETA, Option},
                                  {KEY_RIGHTCTRL, Level3}}));
}

TEST_F(KeymapModifiers, doNotIncludeKeysThatSwitchTheLayout) {
    EXPECT_EQ(difference("us,de", "grp:caps_toggle").at(KEY_CAPSLOCK), None);
    EXPECT_EQ(difference("us,gr", "grp:rctrl_toggle").at(KEY_RIGHTCTRL), None);
}

// Their release does not end what their press began.
TEST_F(KeymapModifiers, doNotIncludeKeysThatLatch) {
    std::string text = keymapText("us", "");
    const auto at = text.find("key <LCTL>");
    ASSERT_NE(at, std::string::npos);
    const auto end = text.find("};", at);
    text.replace(
        at, end - at, "key <LCTL> { [Control_L], actions[1]=[LatchMods(modifiers=Control)] ");
    const auto keymap = Keymap::read(text);
    ASSERT_TRUE(keymap);
    const ModifierTable table = modifiersOf(*keymap);
    EXPECT_EQ(table.modifierOf(KEY_LEFTCTRL), None);
    EXPECT_EQ(table.keyFor(Control), KEY_RIGHTCTRL);
}

TEST(Keymap, isNotReadFromAnythingElse) {
    EXPECT_FALSE(Keymap::read(""));
    EXPECT_FALSE(Keymap::read(std::string("\0\0\0", 3)));
    EXPECT_FALSE(Keymap::read("xkb_keymap {"));
    EXPECT_FALSE(Keymap::read("xkb_keymap { };;;"));
    EXPECT_FALSE(Keymap::read("\xff\xfe\x01"));
    EXPECT_FALSE(Keymap::read(std::string(Keymap::mostBytes + 1, ' ')));
}

TEST(Keymap, isNotReadWithAListThatBeginsWithAComma) {
    EXPECT_FALSE(Keymap::read("xkb_keymap { xkb_keycodes { <A> = 38; }; xkb_types { }; "
                              "xkb_compat { }; xkb_symbols { "
                              "key <A> { , actions[Group1] = [ NoAction() ] }; }; };"));
}

// Whoever could name a file could have it read.
TEST(Keymap, includesNoFiles) {
    EXPECT_FALSE(Keymap::read("xkb_keymap { xkb_keycodes { include \"evdev\" }; "
                              "xkb_types { include \"complete\" }; "
                              "xkb_compat { include \"complete\" }; "
                              "xkb_symbols { include \"pc+us\" }; };"));
}

TEST(Keymap, mayBeEmptyOfKeys) {
    const auto keymap = Keymap::read("xkb_keymap { xkb_keycodes { }; xkb_types { }; "
                                     "xkb_compat { }; xkb_symbols { }; };");
    ASSERT_TRUE(keymap);
    EXPECT_EQ(modifiersOf(*keymap), ModifierTable());
}

TEST(Keymap, mayEndWithAZeroByte) {
    const std::string text = keymapText("us", "");
    if (text.empty()) {
        GTEST_SKIP() << "not installed: xkeyboard-config";
    }
    EXPECT_TRUE(Keymap::read(text + std::string(3, '\0')));
}

} // namespace

} // namespace pallistrom
