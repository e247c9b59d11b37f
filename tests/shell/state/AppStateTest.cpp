// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "shell/state/AppState.h"

#include "FakePlatform.h"
#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace pallistrom {

namespace {

using namespace std::chrono_literals;
using enum SMAppServiceStatus;

class AppStateTest : public testing::Test {
protected:
    AppStateTest() {
        Preferences::registerDefaults(ShortcutLibrary::all);
        make();
    }

    void make() {
        state = std::make_unique<AppState>();
        QObject::connect(state.get(), &AppState::objectWillChange, state.get(), [this] {
            ++signals;
            versionsBefore.push_back(state->prefsVersion());
            trustBefore.push_back(state->isTrusted());
        });
    }

    fake::Platform platform;
    std::unique_ptr<AppState> state;
    int signals = 0;
    std::vector<std::int64_t> versionsBefore; ///< what an observer reads when it is told
    std::vector<bool> trustBefore;
};

TEST_F(AppStateTest, knowsTheSystemsFactsFromTheStart) {
    platform.trusted = true;
    platform.loginItemStatus = SMAppServiceStatusEnabled;
    make();
    EXPECT_TRUE(state->isTrusted());
    EXPECT_TRUE(state->launchAtLogin());
    EXPECT_EQ(state->prefsVersion(), 0);
    platform.trusted = false;
    platform.loginItemStatus = SMAppServiceStatusRequiresApproval;
    make();
    EXPECT_FALSE(state->isTrusted());
    EXPECT_FALSE(state->launchAtLogin());
}

TEST_F(AppStateTest, doesNotWatchBeforeItIsStarted) {
    platform.advance(60s);
    EXPECT_EQ(platform.wakeUps, 0U);
}

TEST_F(AppStateTest, readsTheFactsWhenItIsStarted) {
    platform.trusted = false;
    state->start();
    EXPECT_FALSE(state->isTrusted());
}

TEST_F(AppStateTest, followsThePermissionWithinOneAndAHalfSeconds) {
    state->start();
    platform.trusted = false;
    platform.advance(1499ms);
    EXPECT_TRUE(state->isTrusted());
    platform.advance(1ms);
    EXPECT_FALSE(state->isTrusted());
    platform.trusted = true;
    platform.advance(1500ms);
    EXPECT_TRUE(state->isTrusted());
    EXPECT_EQ(signals, 2);
}

TEST_F(AppStateTest, followsALoginItemThatIsChangedElsewhere) {
    platform.loginItemStatus = SMAppServiceStatusEnabled;
    make();
    state->start();
    platform.loginItemStatus = SMAppServiceStatusRequiresApproval;
    platform.advance(1500ms);
    EXPECT_FALSE(state->launchAtLogin());
    EXPECT_EQ(signals, 1);
}

TEST_F(AppStateTest, signalsBeforeItAssigns) {
    platform.trusted = false;
    state->refresh();
    EXPECT_EQ(trustBefore, std::vector{true});
    state->bumpPrefsVersion();
    EXPECT_EQ(versionsBefore.back(), 0);
    EXPECT_EQ(state->prefsVersion(), 1);
}

TEST_F(AppStateTest, publishesEachFactByItself) {
    platform.trusted = false;
    platform.loginItemStatus = SMAppServiceStatusEnabled;
    state->refresh();
    EXPECT_EQ(signals, 2);
}

TEST_F(AppStateTest, publishesNothingWhileNothingChanges) {
    state->start();
    platform.advance(60s);
    EXPECT_EQ(platform.wakeUps, 40U);
    EXPECT_EQ(signals, 0);
    EXPECT_TRUE(platform.mainQueue.empty());
}

TEST_F(AppStateTest, bindsASwitchToWhatThePreferencesHold) {
    const Binding binding = state->binding("ctrlW");
    EXPECT_TRUE(binding.get());
    Preferences::setEnabled("ctrlW", false);
    EXPECT_FALSE(binding.get()) << "it keeps no value of its own";
    EXPECT_EQ(signals, 0);
}

TEST_F(AppStateTest, countsASwitchThatIsFlippedThroughABinding) {
    state->binding("ctrlK").set(true);
    EXPECT_TRUE(Preferences::isEnabled("ctrlK"));
    EXPECT_EQ(state->prefsVersion(), 1);
    EXPECT_EQ(signals, 1);
}

TEST_F(AppStateTest, hasStoredASwitchByTheTimeThatItSaysSo) {
    bool stored = false;
    QObject::connect(state.get(), &AppState::objectWillChange, state.get(), [&stored] {
        stored = Preferences::isEnabled("ctrlK");
    });
    state->binding("ctrlK").set(true);
    EXPECT_TRUE(stored);
}

TEST_F(AppStateTest, publishesTheLoginItemThatTheSystemReports) {
    state->setLaunchAtLogin(true);
    EXPECT_TRUE(state->launchAtLogin());
    state->setLaunchAtLogin(false);
    EXPECT_FALSE(state->launchAtLogin());
    EXPECT_EQ(signals, 2);
}

TEST_F(AppStateTest, staysOffWhenTheSystemRefusesTheLoginItem) {
    platform.loginItemRefusal = NSError{"no"};
    state->setLaunchAtLogin(true);
    EXPECT_FALSE(state->launchAtLogin());
    EXPECT_EQ(signals, 0);
}

TEST_F(AppStateTest, leavesATimerBehindThatDoesNothing) {
    state->start();
    state.reset();
    platform.trusted = false;
    platform.advance(3s);
    EXPECT_EQ(platform.wakeUps, 2U);
}

} // namespace

} // namespace pallistrom
