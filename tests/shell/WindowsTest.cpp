// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ShellTest.h"
#include "platform/Precondition.h"

#include <QAbstractButton>
#include <QPointer>

#include <algorithm>

namespace pallistrom {

namespace {

using namespace std::chrono_literals;
using Titles = std::vector<std::string>;

constexpr std::string_view guide = "Welcome to Pallistrom";
constexpr std::string_view settings = "Pallistrom Settings";

class Windows : public ShellTest {
protected:
    static QAbstractButton* switchOf(const Window& window, std::string_view title) {
        const auto buttons = window.findChildren<QAbstractButton*>();
        const auto found = std::find_if(buttons.begin(), buttons.end(), [title](auto* button) {
            return button->isCheckable() && button->accessibleName().toStdString() == title;
        });
        precondition(found != buttons.end(), "no such switch");
        return *found;
    }

    void walkToTheEnd() const {
        for (int step = 0; step < 3; ++step) {
            press(*window(guide), "Continue");
        }
    }
};

TEST_F(Windows, openFromTheMenu) {
    launchAgain();
    platform.chooseMenuItem("Settings…");
    EXPECT_EQ(visibleWindows(), Titles{"Pallistrom Settings"});
    platform.chooseMenuItem("Onboarding…");
    EXPECT_EQ(visibleWindows(), (Titles{"Pallistrom Settings", "Welcome to Pallistrom"}));
}

TEST_F(Windows, makeTheApplicationARegularOneInFront) {
    launchAgain();
    EXPECT_EQ(policy(), accessory);
    delegate->showSettings();
    EXPECT_EQ(policy(), regular);
    EXPECT_EQ(platform.activations, 1U);
}

TEST_F(Windows, areMadeOnceAndThenBroughtToTheFront) {
    launchAgain();
    delegate->showSettings();
    delegate->showOnboarding(nullptr);
    const auto* const first = window(settings);
    platform.activationPolicies.clear();
    delegate->showSettings();
    EXPECT_EQ(window(settings), first);
    EXPECT_EQ(visibleWindows().size(), 2U);
    EXPECT_EQ(policy(), regular);
    EXPECT_EQ(platform.activations, 3U);
}

TEST_F(Windows, areNewOnesAfterTheyWereClosed) {
    launch();
    press(*window(guide), "Continue");
    window(guide)->close();
    turn();
    delegate->showOnboarding(nullptr);
    walkToTheEnd();
    press(*window(guide), "Done");
    EXPECT_TRUE(Preferences::hasCompletedOnboarding()) << "it had started at the first step";
}

TEST_F(Windows, canBeClosedAndNeitherResizedNorMinimised) {
    launchAgain();
    delegate->showSettings();
    const auto flags = window(settings)->windowFlags();
    EXPECT_TRUE(flags.testFlag(Qt::WindowTitleHint));
    EXPECT_TRUE(flags.testFlag(Qt::WindowCloseButtonHint));
    EXPECT_FALSE(flags.testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_FALSE(flags.testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_EQ(window(settings)->minimumSize(), window(settings)->maximumSize());
    EXPECT_EQ(window(settings)->width(), 480);
}

TEST_F(Windows, areAsLargeAsTheirContent) {
    launch();
    EXPECT_EQ(window(guide)->size(), QSize(560, 540));
}

TEST_F(Windows, closeWithoutEndingTheProgram) {
    launchAgain();
    delegate->showSettings();
    window(settings)->close();
    turn();
    EXPECT_EQ(visibleWindows(), Titles{});
    EXPECT_FALSE(platform.terminated);
    EXPECT_EQ(policy(), accessory);
}

TEST_F(Windows, areGoneOnALaterTurnThanTheirClosing) {
    launchAgain();
    delegate->showSettings();
    const QPointer<Window> closing(window(settings));
    closing->close();
    EXPECT_FALSE(closing.isNull());
    turn();
    EXPECT_TRUE(closing.isNull());
}

TEST_F(Windows, refreshTheStatusItemWhenTheyClose) {
    launchAgain();
    delegate->showSettings();
    platform.trusted = false;
    window(settings)->close();
    EXPECT_EQ(platform.images.back()->symbolName, "exclamationmark.triangle");
    EXPECT_EQ(platform.menus.back().front().title, "⚠ Accessibility access needed");
}

TEST_F(Windows, keepTheApplicationRegularWhileOneIsVisible) {
    launch();
    delegate->showSettings();
    window(settings)->close();
    turn();
    EXPECT_EQ(policy(), regular);
    window(guide)->close();
    EXPECT_EQ(policy(), regular) << "decided on a later turn";
    turn();
    EXPECT_EQ(policy(), accessory);
}

TEST_F(Windows, goFromTheSettingsToTheGuideWithoutLeavingTheFront) {
    launchAgain();
    delegate->showSettings();
    press(*window(settings), "Replay Onboarding");
    turn();
    EXPECT_EQ(visibleWindows(), Titles{"Welcome to Pallistrom"});
    EXPECT_EQ(platform.activationPolicies, (std::vector{accessory, regular, regular}));
}

TEST_F(Windows, rememberTheGuideOnlyAfterDone) {
    launch();
    window(guide)->close();
    turn();
    EXPECT_FALSE(Preferences::hasCompletedOnboarding());

    launch();
    EXPECT_EQ(visibleWindows(), Titles{"Welcome to Pallistrom"}) << "it comes back";
    walkToTheEnd();
    EXPECT_FALSE(Preferences::hasCompletedOnboarding());
    press(*window(guide), "Done");
    turn();
    EXPECT_TRUE(Preferences::hasCompletedOnboarding());
    EXPECT_EQ(visibleWindows(), Titles{});
    EXPECT_EQ(policy(), accessory);
}

TEST_F(Windows, quitFromTheSettings) {
    launchAgain();
    delegate->showSettings();
    press(*window(settings), "Quit Pallistrom");
    EXPECT_TRUE(platform.terminated);
}

TEST_F(Windows, showASwitchThatIsChosenInTheMenu) {
    launch();
    delegate->showSettings();
    press(*window(guide), "Continue");
    press(*window(guide), "Continue");
    for (const bool isOn : {true, false}) {
        platform.chooseMenuItem("⌃K   Delete to line end");
        turn();
        EXPECT_EQ(switchOf(*window(settings), "Delete to line end")->isChecked(), isOn);
        EXPECT_EQ(switchOf(*window(guide), "Delete to line end")->isChecked(), isOn);
    }
}

TEST_F(Windows, haveTheirSwitchesInTheMenuWithinTwoSeconds) {
    launchAgain();
    delegate->showSettings();
    switchOf(*window(settings), "Delete to line end")->click();
    platform.advance(2s);
    EXPECT_TRUE(Preferences::isEnabled("ctrlK"));
    EXPECT_TRUE(std::any_of(
        platform.menus.back().begin(), platform.menus.back().end(), [](const NSMenuItem& item) {
            return item.representedObject == "ctrlK" &&
                   item.state == NSControlStateValue::NSControlStateValueOn;
        }));
}

TEST_F(Windows, showTheSettingsToWhoeverStartsTheProgramAgain) {
    launchAgain();
    delegate->applicationShouldHandleReopen();
    EXPECT_EQ(visibleWindows(), Titles{"Pallistrom Settings"});
}

TEST_F(Windows, showTheGuideAgainWhereThatIsOpen) {
    launch();
    platform.activations = 0;
    delegate->applicationShouldHandleReopen();
    EXPECT_EQ(visibleWindows(), Titles{"Welcome to Pallistrom"});
    EXPECT_EQ(platform.activations, 1U);
}

TEST_F(Windows, ignoreTheClosingOfWhatIsNoWindow) {
    launchAgain();
    const auto calls = platform.calls;
    QObject object;
    delegate->windowWillClose(&object);
    delegate->windowWillClose(nullptr);
    EXPECT_EQ(platform.calls, calls);
    EXPECT_TRUE(platform.mainQueue.empty());
}

TEST_F(Windows, becomeAccessoryWithoutTheirDelegateToo) {
    delegate = std::make_shared<AppDelegate>();
    Preferences::setHasCompletedOnboarding(true);
    delegate->applicationDidFinishLaunching();
    delegate->showSettings();
    window(settings)->close();
    delegate.reset();
    turn();
    EXPECT_EQ(policy(), accessory);
}

} // namespace

} // namespace pallistrom
