// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ShellTest.h"
#include "shell/state/AppState.h"

#include <algorithm>

namespace pallistrom {

namespace {

using namespace std::chrono_literals;

class StatusItem : public ShellTest {
protected:
    [[nodiscard]] bool isChecked(std::string_view id) const {
        const NSMenu& menu = platform.menus.back();
        const auto item = std::find_if(menu.begin(), menu.end(), [id](const NSMenuItem& each) {
            return each.representedObject == id;
        });
        return item->state == NSControlStateValue::NSControlStateValueOn;
    }
};

TEST_F(StatusItem, hasTheProgramsNameForAToolTipOnceAndForAll) {
    launchAgain();
    platform.advance(60s);
    EXPECT_EQ(platform.toolTips, std::vector<std::string>{"Pallistrom"});
}

TEST_F(StatusItem, showsATemplateWithTheProgramsName) {
    launchAgain();
    EXPECT_EQ(platform.images.back(),
              (NSImage{.symbolName = "delete.left",
                       .accessibilityDescription = "Pallistrom",
                       .isTemplate = true}));
    platform.trusted = false;
    platform.advance(2s);
    EXPECT_EQ(platform.images.back(),
              (NSImage{.symbolName = "exclamationmark.triangle",
                       .accessibilityDescription = "Pallistrom",
                       .isTemplate = true}));
}

TEST_F(StatusItem, goesWithoutAPictureThatTheSystemDoesNotHave) {
    platform.missingSymbols = {"delete.left"};
    launchAgain();
    EXPECT_EQ(platform.images.back(), std::nullopt);
    EXPECT_FALSE(platform.menus.empty()) << "the menu is built all the same";
    EXPECT_TRUE(platform.log.empty());
}

TEST_F(StatusItem, withoutAButtonHasNoMenuEither) {
    platform.hasStatusButton = false;
    launchAgain();
    platform.advance(10s);
    EXPECT_TRUE(platform.toolTips.empty());
    EXPECT_TRUE(platform.images.empty());
    EXPECT_TRUE(platform.menus.empty());
    EXPECT_TRUE(tapController->isActive()) << "the shortcuts work without it";
}

TEST_F(StatusItem, buildsItsMenuAnewEveryTwoSeconds) {
    launchAgain();
    const auto before = platform.menus.size();
    platform.advance(60s);
    EXPECT_EQ(platform.menus.size(), before + 30);
}

TEST_F(StatusItem, flipsASwitchThatIsChosen) {
    launchAgain();
    const auto version = AppState::shared().prefsVersion();
    platform.chooseMenuItem("⌃W   Delete word");
    EXPECT_FALSE(Preferences::isEnabled("ctrlW"));
    EXPECT_FALSE(isChecked("ctrlW")) << "at once, not at the next tick";
    EXPECT_EQ(AppState::shared().prefsVersion(), version + 1);
    platform.chooseMenuItem("⌃W   Delete word");
    EXPECT_TRUE(Preferences::isEnabled("ctrlW"));
    EXPECT_TRUE(isChecked("ctrlW"));
    EXPECT_EQ(AppState::shared().prefsVersion(), version + 2);
}

TEST_F(StatusItem, hasStoredASwitchByTheTimeThatItSaysSo) {
    launchAgain();
    QObject context;
    bool wasStored = false;
    QObject::connect(&AppState::shared(), &AppState::objectWillChange, &context, [&wasStored] {
        wasStored = !Preferences::isEnabled("ctrlW");
    });
    platform.chooseMenuItem("⌃W   Delete word");
    EXPECT_TRUE(wasStored);
}

TEST_F(StatusItem, flipsWhatIsStoredNotWhatWasShown) {
    launchAgain();
    Preferences::setEnabled("ctrlW", false);
    platform.chooseMenuItem("⌃W   Delete word");
    EXPECT_TRUE(Preferences::isEnabled("ctrlW"));
}

TEST_F(StatusItem, ignoresASwitchThatNamesNoShortcut) {
    launchAgain();
    const auto version = AppState::shared().prefsVersion();
    const auto menus = platform.menus.size();
    delegate->toggleShortcut(nullptr);
    const NSMenuItem nameless;
    delegate->toggleShortcut(&nameless);
    delegate->performAction("toggleShortcut:", nullptr);
    EXPECT_EQ(AppState::shared().prefsVersion(), version);
    EXPECT_EQ(platform.menus.size(), menus);
}

TEST_F(StatusItem, followsASwitchThatIsChangedElsewhereWithinTwoSeconds) {
    launchAgain();
    AppState::shared().binding("ctrlK").set(true);
    EXPECT_FALSE(isChecked("ctrlK"));
    platform.advance(2s);
    EXPECT_TRUE(isChecked("ctrlK"));
}

TEST_F(StatusItem, opensTheAccessibilityPaneFromItsWarning) {
    platform.trusted = false;
    launchAgain();
    const auto menus = platform.menus.size();
    platform.chooseMenuItem("⚠ Accessibility access needed");
    EXPECT_EQ(platform.openedURLs,
              std::vector<std::string>{"x-apple.systempreferences:com.apple.preference.security?"
                                       "Privacy_Accessibility"});
    EXPECT_EQ(platform.trustPrompts, std::vector{false}) << "the one of the launch";
    EXPECT_EQ(platform.menus.size(), menus);
    EXPECT_TRUE(visibleWindows().empty());
}

TEST_F(StatusItem, reportsAnIssue) {
    launchAgain();
    platform.chooseMenuItem("Report an Issue…");
    ASSERT_EQ(platform.openedURLs.size(), 1U);
    EXPECT_TRUE(platform.openedURLs.front().starts_with("mailto:"));
}

TEST_F(StatusItem, quits) {
    launchAgain();
    EXPECT_FALSE(platform.terminated);
    platform.chooseMenuItem("Quit Pallistrom");
    EXPECT_TRUE(platform.terminated);
}

TEST_F(StatusItem, ignoresActionsThatItDoesNotKnow) {
    launchAgain();
    const auto calls = platform.calls;
    delegate->performAction("terminateEverything", nullptr);
    delegate->performAction("", nullptr);
    EXPECT_EQ(platform.calls, calls);
    EXPECT_FALSE(platform.terminated);
}

TEST(StatusItemDeathTest, isNeeded) {
    fake::Platform platform;
    platform.hasStatusBar = false;
    const auto delegate = std::make_shared<AppDelegate>();
    EXPECT_DEATH(delegate->applicationDidFinishLaunching(), "the system gives no status item");
    EXPECT_DEATH(delegate->rebuildMenu(), "no status item to have a menu");
}

} // namespace

} // namespace pallistrom
