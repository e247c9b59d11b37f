// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "HeldKeys.h"
#include "ShortcutTest.h"
#include "Tools.h"
#include "XConnection.h"

#include <string>
#include <vector>

namespace pallistrom::e2e {

namespace {

// Given the name of a modifier on the right, xdotool would press the one on the left along with it.
using KeyNumbers = std::vector<std::string>;

const std::string keyOfControl = "37";
const std::string keyOfRightControl = "105";
const std::string keyOfAlt = "64";
const std::string keyOfRightAlt = "108";
const std::string keyOfCapsLock = "66";

/// Keyboards as people set them up: layouts, moved modifiers, locks.
class Keyboards : public ShortcutTest {
protected:
    void SetUp() override { setUpWith(Keyboard::Device); }

    static void setUpWith(Keyboard keyboard) {
        if (const std::string missing = missingPrograms({"setxkbmap"}); !missing.empty()) {
            GTEST_SKIP() << missing;
        }
        setUpDesks({"field-qt6", keyboard});
        if (!IsSkipped()) {
            switchOnAll();
        }
    }

    void TearDown() override {
        if (!IsSkipped()) {
            setKeymap({"us", "-option", ""});
        }
        ShortcutTest::TearDown();
    }

    static void setKeymap(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "setxkbmap");
        run({.arguments = std::move(arguments),
             .environment = Home{}.environment(desk().display.name())});
    }

    /// Checks what becomes of a text with the cursor in its middle when `key` is pressed while
    /// `modifiers` are held.
    static void
    expectAfter(const KeyNumbers& modifiers, const std::string& key, const TextState& expected) {
        SCOPED_TRACE(key);
        desk().field.set(middle);
        std::string script = '+' + key + " -" + key;
        for (const std::string& modifier : modifiers) {
            script = '+' + modifier + ' ' + script + " -" + modifier;
        }
        desk().keys.play(script);
        EXPECT_EQ(desk().field.waitFor(expected), expected);
        EXPECT_TRUE(waitUntil([] { return keysThatAreDown().empty(); }));
    }

    static void expectAllShortcutsWith(const KeyNumbers& control, const KeyNumbers& option) {
        expectAfter(control, "w", {.text = "alpha gamma delta", .cursor = 6});
        expectAfter(control, "u", {.text = "gamma delta", .cursor = 0});
        expectAfter(control, "k", {.text = "alpha beta ", .cursor = 11});
        expectAfter(option, "d", withoutProgram(middle, "+ctrl +Delete -Delete -ctrl"));
    }

private:
    static std::vector<std::string> keysThatAreDown() {
        return heldKeys(XConnection{desk().display.name()});
    }

    static inline const TextState middle{.text = "alpha beta gamma delta", .cursor = 11};
};

TEST_F(Keyboards, withLettersElsewhereKeepTheShortcutsOnTheirPhysicalKeys) {
    // The keys are those that are W, U, K and D on a US keyboard.
    for (const std::string layout : {"fr", "us(dvorak)", "de"}) {
        SCOPED_TRACE(layout);
        setKeymap({layout});
        expectAllShortcutsWith({keyOfControl}, {keyOfAlt});
    }
}

TEST_F(Keyboards, withTwoLayoutsWorkInTheSecondOne) {
    setKeymap({"us,ru", "-option", "grp:sclk_toggle"});
    desk().keys.press("Scroll_Lock");
    expectAllShortcutsWith({keyOfControl}, {keyOfAlt});
    desk().keys.press("Scroll_Lock");
}

TEST_F(Keyboards, mayHaveTheirLocksOn) {
    for (const std::string lock : {"Caps_Lock", "Num_Lock", "Scroll_Lock"}) {
        SCOPED_TRACE(lock);
        desk().keys.press(lock);
        expectAllShortcutsWith({keyOfControl}, {keyOfAlt});
        desk().keys.press(lock);
    }
}

TEST_F(Keyboards, mayBeUsedWithTheRightModifiers) {
    expectAllShortcutsWith({keyOfRightControl}, {keyOfRightAlt});
}

TEST_F(Keyboards, mayBeUsedWithTheModifiersOfBothSides) {
    expectAllShortcutsWith({keyOfControl, keyOfRightControl}, {keyOfAlt, keyOfRightAlt});
}

/// Modifiers that are elsewhere, of faked keys.
class MovedModifiers : public Keyboards {
protected:
    void SetUp() override { setUpWith(Keyboard::Faked); }

    // When it returns, the program knows: it follows what it is told in order, and switches come
    // last.
    static void setOption(const std::string& option) {
        switchOnOnly({});
        setKeymap({"us", "-option", option});
        switchOnAll();
    }
};

TEST_F(MovedModifiers, mayBeThoseOnTheRight) {
    expectAllShortcutsWith({keyOfRightControl}, {keyOfRightAlt});
}

TEST_F(MovedModifiers, mayBeHeldOnBothSides) {
    expectAllShortcutsWith({keyOfControl, keyOfRightControl}, {keyOfAlt, keyOfRightAlt});
}

TEST_F(MovedModifiers, mayHaveCapsLockAsControl) {
    setOption("ctrl:nocaps");
    expectAllShortcutsWith({keyOfCapsLock}, {keyOfAlt});
}

TEST_F(MovedModifiers, mayHaveControlAndAltSwapped) {
    setOption("ctrl:swap_lalt_lctl");
    expectAllShortcutsWith({keyOfAlt}, {keyOfControl});
}

} // namespace

} // namespace pallistrom::e2e
