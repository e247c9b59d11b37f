// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ShellTest.h"
#include "shell/UpdaterManager.h"
#include "shell/state/AppState.h"

namespace pallistrom {

namespace {

using namespace std::chrono_literals;
using Calls = std::vector<std::string>;

class Launch : public ShellTest {};

const Calls launchSteps{
    "registerDefaults",

    "statusItemWithLength",
    "setToolTip",
    "setImage",
    "setMenu",

    "AXIsProcessTrustedWithOptions",

    "CGEventTapCreate",
    "CFMachPortCreateRunLoopSource",
    "CFRunLoopAddSource",
    "CGEventTapEnable",

    "scheduledTimer 1500",
    "startUpdater",
    "scheduledTimer 2000",

    "setImage",
    "setMenu",
};

Calls operator+(Calls first, const Calls& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

// The first of this program's tests: the updater is made once for a whole process.
TEST_F(Launch, goesThroughItsStepsInOrder) {
    launch();
    const Calls main{"sharedApplication", "setDelegate", "setActivationPolicy", "run"};
    const Calls guide{"setActivationPolicy", "activateIgnoringOtherApps"};
    EXPECT_EQ(platform.calls, main + launchSteps + guide);
    EXPECT_EQ(platform.activationPolicies, (std::vector{accessory, regular}));
    EXPECT_EQ(visibleWindows(), Calls{"Welcome to Pallistrom"});
}

TEST_F(Launch, endsBeforeTheGuideForThoseWhoKnowIt) {
    launchAgain();
    Calls expected = launchSteps;
    Calls calls(platform.calls.begin() + 4, platform.calls.end());
    std::erase(expected, "startUpdater");
    std::erase(calls, "startUpdater");
    EXPECT_EQ(calls, expected);
    EXPECT_EQ(platform.activationPolicies, std::vector{accessory});
    EXPECT_EQ(visibleWindows(), Calls{});
}

TEST_F(Launch, asksForThePermissionUntilTheGuideIsDone) {
    platform.trusted = false;
    launch();
    platform.advance(60s);
    EXPECT_EQ(platform.trustPrompts, std::vector{true});
}

TEST_F(Launch, neverAsksForThePermissionAfterTheGuide) {
    platform.trusted = false;
    launchAgain();
    platform.advance(60s);
    EXPECT_EQ(platform.trustPrompts, std::vector{false});
    EXPECT_EQ(visibleWindows(), Calls{});
    EXPECT_EQ(platform.images.back()->symbolName, "exclamationmark.triangle");
    EXPECT_EQ(platform.menus.back().front().title, "⚠ Accessibility access needed");
}

TEST_F(Launch, doesNothingBeforeTheLoopRuns) {
    delegate = std::make_shared<AppDelegate>();
    EXPECT_TRUE(platform.calls.empty());
    EXPECT_EQ(tapController, nullptr);
}

TEST_F(Launch, registersTheSwitchesBeforeAnybodyReadsThem) {
    launch();
    EXPECT_TRUE(Preferences::isEnabled("ctrlW"));
    EXPECT_FALSE(Preferences::isEnabled("ctrlK"));
}

TEST_F(Launch, publishesTheTapBeforeThereIsAStatusItem) {
    bool wasPublished = false;
    platform.whenCalled = [&](std::string_view call) {
        wasPublished = wasPublished || (call == "statusItemWithLength" && tapController != nullptr);
    };
    launch();
    EXPECT_TRUE(wasPublished);
}

TEST_F(Launch, readsOnceWhetherTheGuideIsDone) {
    platform.whenCalled = [](std::string_view call) {
        if (call == "AXIsProcessTrustedWithOptions") {
            Preferences::setHasCompletedOnboarding(true);
        }
    };
    launch();
    EXPECT_EQ(visibleWindows(), Calls{"Welcome to Pallistrom"});
}

TEST_F(Launch, publishesTheTapBeforeItIsCreated) {
    platform.trusted = false;
    launch();
    ASSERT_NE(tapController, nullptr);
    EXPECT_EQ(tapController->shortcuts().size(), 4U);
    EXPECT_FALSE(tapController->isActive());
}

TEST_F(Launch, bringsTheTapToLifeWithinTwoSecondsOfTrust) {
    platform.trusted = false;
    launchAgain();
    platform.advance(10s);
    EXPECT_FALSE(tapController->isActive());

    platform.trusted = true;
    platform.advance(2s);
    EXPECT_TRUE(tapController->isActive());
    EXPECT_EQ(platform.images.back()->symbolName, "delete.left");
    EXPECT_EQ(platform.menus.back().front().title, "Shortcuts");
}

TEST_F(Launch, wakesForItsTwoTimersAndNothingElse) {
    launchAgain();
    platform.calls.clear();
    platform.advance(60s);
    EXPECT_EQ(platform.wakeUps, 30U + 40U);
    EXPECT_TRUE(platform.mainQueue.empty());
}

TEST_F(Launch, leavesARunningTapAloneAndSwitchesAStoppedOneOn) {
    launchAgain();
    const auto taps = [this] {
        return std::count(platform.calls.begin(), platform.calls.end(), "CGEventTapEnable");
    };
    const auto before = taps();
    platform.advance(10s);
    EXPECT_EQ(taps(), before);
    platform.tapEnabled = false;
    platform.advance(2s);
    EXPECT_EQ(taps(), before + 1);
}

TEST_F(Launch, leavesATimerBehindThatDoesNothingForADelegateThatIsGone) {
    delegate = std::make_shared<AppDelegate>();
    Preferences::setHasCompletedOnboarding(true);
    delegate->applicationDidFinishLaunching();
    delegate.reset();
    platform.tapEnabled = false;
    platform.calls.clear();
    platform.advance(2s);
    EXPECT_TRUE(platform.calls.empty());
}

TEST_F(Launch, leavesCheckingForUpdatesToTheUpdater) {
    launchAgain();
    EXPECT_EQ(platform.updateChecks, 0U);
    platform.chooseMenuItem("Check for Updates…");
    EXPECT_EQ(platform.updateChecks, 1U);
}

TEST(UpdaterManager, keepsNoSettingOfItsOwn) {
    fake::Platform platform;
    auto& manager = UpdaterManager::shared();
    EXPECT_TRUE(manager.automaticChecksEnabled());
    manager.setAutomaticChecksEnabled(false);
    EXPECT_FALSE(platform.checksAutomatically);
    platform.checksAutomatically = true;
    EXPECT_TRUE(manager.automaticChecksEnabled());
}

} // namespace

} // namespace pallistrom
