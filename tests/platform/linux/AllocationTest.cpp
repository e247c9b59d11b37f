// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "CountedAllocations.h"
#include "Environment.h"
#include "EventLoop.h"
#include "engine/EventTapController.h"
#include "engine/KeyCode.h"
#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"
#include "engine/tapCallback.h"
#include "platform/linux/KeyFilter.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace pallistrom {

namespace {

constexpr CGEventFlags control = kCGEventFlagMaskControl;
constexpr CGEventFlags option = kCGEventFlagMaskAlternate;

// A key through the filter of the running program, with the user defaults that it really has.
class KeyThroughTheFilter : public testing::Test {
public:
    KeyThroughTheFilter() {
        // Before anybody asks for the one store of the program.
        Environment::set("XDG_CONFIG_HOME", home());
        tapController = std::make_shared<EventTapController>(ShortcutLibrary::all);
        Preferences::registerDefaults(ShortcutLibrary::all);
        switchAll(true);
    }

    KeyThroughTheFilter(const KeyThroughTheFilter&) = delete;
    KeyThroughTheFilter& operator=(const KeyThroughTheFilter&) = delete;

    ~KeyThroughTheFilter() override { tapController.reset(); }

protected:
    static void switchAll(bool on) {
        for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
            Preferences::setEnabled(shortcut.id, on);
        }
    }

    // Returns how often a press and a release of the key allocate.
    std::size_t allocationsOf(std::int64_t keyCode, CGEventFlags flags) {
        const std::size_t before = countedAllocations();
        for (const bool isDown : {true, false}) {
            isUntouched =
                filter.ask({.keyCode = keyCode, .flags = flags, .isDown = isDown}).isUntouched;
        }
        return countedAllocations() - before;
    }

    EventLoop loop;
    KeyFilter filter{tapCallback, nullptr, {}};
    bool isUntouched = false;

private:
    static std::string home() {
        static const QTemporaryDir folder;
        return folder.path().toStdString();
    }
};

TEST_F(KeyThroughTheFilter, isCountedIfItAllocates) {
    const std::size_t before = countedAllocations();
    const auto something = std::make_unique<std::string>(100, 'x');
    EXPECT_EQ(countedAllocations() - before, 2U) << something->size();
}

TEST_F(KeyThroughTheFilter, allocatesNothingWhenItPasses) {
    EXPECT_EQ(allocationsOf(0, 0), 0U);
    EXPECT_TRUE(isUntouched);
    EXPECT_EQ(allocationsOf(KeyCode::w, 0), 0U);
    EXPECT_TRUE(isUntouched);
    EXPECT_EQ(allocationsOf(KeyCode::k, control | option), 0U);
    EXPECT_TRUE(isUntouched);
}

TEST_F(KeyThroughTheFilter, allocatesNothingWhenItsSwitchIsOff) {
    switchAll(false);
    for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
        EXPECT_EQ(allocationsOf(shortcut.triggerKeyCode, shortcut.requiredFlags), 0U)
            << shortcut.id;
        EXPECT_TRUE(isUntouched) << shortcut.id;
    }
}

TEST_F(KeyThroughTheFilter, allocatesNothingWhenItIsRewritten) {
    for (const auto& [keyCode, flags] :
         {std::pair{KeyCode::w, control}, {KeyCode::u, control}, {KeyCode::d, option}}) {
        EXPECT_EQ(allocationsOf(keyCode, flags), 0U) << keyCode;
        EXPECT_FALSE(isUntouched) << keyCode;
    }
}

} // namespace

} // namespace pallistrom
