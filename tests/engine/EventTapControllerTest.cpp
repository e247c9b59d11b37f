// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "engine/EventTapController.h"

#include "EngineTest.h"
#include "engine/tapCallback.h"

#include <algorithm>
#include <string>
#include <vector>

namespace pallistrom {

namespace {

using Calls = std::vector<std::string>;

class EventTap : public EngineTest {
protected:
    EventTap() { platform.calls.clear(); }

    EventTapController controller{ShortcutLibrary::all};
};

TEST_F(EventTap, isNotInstalledByItsOwnersConstruction) {
    EXPECT_TRUE(platform.calls.empty());
    EXPECT_FALSE(controller.isActive());
    ASSERT_EQ(controller.shortcuts().size(), 4U);
    EXPECT_EQ(controller.shortcuts()[3].id, "altD");
}

TEST_F(EventTap, isCreatedHookedUpAndSwitchedOnInThatOrder) {
    EXPECT_TRUE(controller.start());
    EXPECT_EQ(platform.calls,
              (Calls{"CGEventTapCreate",
                     "CFMachPortCreateRunLoopSource",
                     "CFRunLoopAddSource",
                     "CGEventTapEnable"}));
    EXPECT_TRUE(controller.isActive());
    ASSERT_EQ(platform.runLoopSources.size(), 1U);
}

TEST_F(EventTap, isAFilterForKeyPressesAndReleasesAtTheHeadOfTheSession) {
    controller.start();
    ASSERT_EQ(platform.createdTaps.size(), 1U);
    const fake::TapParameters& tap = platform.createdTaps.front();
    EXPECT_EQ(tap.location, 1U);
    EXPECT_EQ(tap.placement, 0U);
    EXPECT_EQ(tap.options, 0U);
    EXPECT_EQ(tap.eventsOfInterest, 0xC00U);
    EXPECT_EQ(tap.callback, &tapCallback);
    EXPECT_EQ(tap.userInfo, nullptr);
}

TEST_F(EventTap, saysAllThatItCouldEverMatch) {
    controller.start();
    const auto& keys = platform.createdTaps.front().tappedKeys;
    const auto same = [](const TappedKey& key, const ShortcutDef& shortcut) {
        return key.keyCode == shortcut.triggerKeyCode && key.required == shortcut.requiredFlags &&
               key.forbidden == shortcut.forbiddenFlags;
    };
    EXPECT_TRUE(std::equal(
        keys.begin(), keys.end(), ShortcutLibrary::all.begin(), ShortcutLibrary::all.end(), same));
}

TEST_F(EventTap, isNotStoredWhenItCannotBeCreated) {
    platform.allowsTaps = false;
    EXPECT_FALSE(controller.start());
    EXPECT_EQ(platform.calls, Calls{"CGEventTapCreate"});
    EXPECT_FALSE(controller.isActive());
    EXPECT_TRUE(platform.log.empty());

    platform.allowsTaps = true;
    EXPECT_TRUE(controller.start());
    EXPECT_TRUE(controller.isActive());
}

TEST_F(EventTap, isCreatedOnlyOnceHoweverOftenItIsStarted) {
    controller.start();
    platform.calls.clear();
    platform.tapEnabled = false;
    EXPECT_TRUE(controller.start());
    EXPECT_EQ(platform.calls, Calls{"CGEventTapEnable"});
    EXPECT_EQ(platform.createdTaps.size(), 1U);
    EXPECT_EQ(platform.runLoopSources.size(), 1U);
}

TEST_F(EventTap, saysWhetherASecondStartHelped) {
    controller.start();
    platform.tapEnabled = false;
    platform.obeysEnable = false;
    EXPECT_FALSE(controller.start());
}

TEST_F(EventTap, startsForTheFirstTimeWithoutAskingWhetherItIsOn) {
    platform.obeysEnable = false;
    EXPECT_TRUE(controller.start());
    EXPECT_FALSE(controller.isActive());
}

TEST_F(EventTap, isSwitchedOnAgainByHandOnlyOnceItExists) {
    controller.reEnable();
    EXPECT_TRUE(platform.calls.empty());
    controller.start();
    platform.calls.clear();
    platform.tapEnabled = false;
    controller.reEnable();
    EXPECT_EQ(platform.calls, Calls{"CGEventTapEnable"});
    EXPECT_TRUE(controller.isActive());
}

TEST_F(EventTap, isLeftAloneWhileItRuns) {
    controller.start();
    platform.calls.clear();
    controller.ensureRunning();
    EXPECT_TRUE(platform.calls.empty());
}

TEST_F(EventTap, isCreatedAsSoonAsTheProcessIsTrusted) {
    platform.trusted = false;
    controller.ensureRunning();
    EXPECT_TRUE(platform.calls.empty());
    platform.trusted = true;
    controller.ensureRunning();
    EXPECT_TRUE(controller.isActive());
}

TEST_F(EventTap, isKeptWhileTrustIsWithdrawnAndTheSamePortComesBack) {
    controller.start();
    const auto port = platform.port.lock();
    platform.calls.clear();
    platform.trusted = false;
    platform.tapEnabled = false;
    EXPECT_FALSE(controller.isActive());
    controller.ensureRunning();
    EXPECT_TRUE(platform.calls.empty());

    platform.trusted = true;
    controller.ensureRunning();
    EXPECT_TRUE(controller.isActive());
    EXPECT_EQ(platform.calls, Calls{"CGEventTapEnable"});
    EXPECT_EQ(platform.port.lock(), port);
}

TEST_F(EventTap, isNeitherSwitchedOffNorUnhookedByItsOwnersEnd) {
    {
        EventTapController shortLived(ShortcutLibrary::all);
        shortLived.start();
        platform.calls.clear();
    }
    EXPECT_TRUE(platform.calls.empty());
    EXPECT_TRUE(platform.tapEnabled);
    EXPECT_EQ(platform.runLoopSources.size(), 1U);
    EXPECT_FALSE(platform.port.expired());

    // The run loop's reference was the last one.
    platform.runLoopSources.clear();
    EXPECT_TRUE(platform.port.expired());
}

} // namespace

} // namespace pallistrom
