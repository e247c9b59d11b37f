// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/OnboardingView.h"

#include "OnboardingTest.h"
#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"
#include "views/AccessibilityStatusPill.h"
#include "views/ShortcutRow.h"
#include "views/controls/Switch.h"
#include "views/controls/Text.h"

#include <QApplication>
#include <QTest>

namespace pallistrom {

namespace {

using Texts = std::vector<QString>;

class OnboardingViewTest : public OnboardingTest {
protected:
    static constexpr auto hint = "Toggle “Pallistrom” on in the list, then come back here.";

    [[nodiscard]] bool shows(const QString& text) const {
        const Texts texts = visibleTexts(*view);
        return std::find(texts.begin(), texts.end(), text) != texts.end();
    }
};

TEST_F(OnboardingViewTest, beginsWithTheWelcomeStep) {
    open();
    EXPECT_EQ(view->step(), 0);
    EXPECT_EQ(visibleTexts(*view),
              (Texts{QStringLiteral("Welcome to Pallistrom"),
                     QStringLiteral("Terminal-style text editing, everywhere on your Mac.\n"
                                    "Delete words and lines with the keys your fingers already "
                                    "know."),
                     QStringLiteral("Continue")}));
    EXPECT_FALSE(back().isVisible());
    EXPECT_EQ(highlightedDot(), 0);
    EXPECT_EQ(only<StepDots>(*view).findChildren<Dot*>().size(), 4);
}

TEST_F(OnboardingViewTest, showsThePermissionStep) {
    platform.trusted = false;
    openAt(1);
    setTrusted(false);
    EXPECT_EQ(visibleTexts(*view),
              (Texts{QStringLiteral("Grant Accessibility access"),
                     QStringLiteral(
                         "Pallistrom watches for your shortcut keys and turns them into delete "
                         "commands. macOS requires Accessibility permission for this — it never "
                         "logs or sends your keystrokes anywhere."),
                     QStringLiteral("Waiting for Accessibility access"),
                     QStringLiteral("Open Accessibility Settings…"),
                     QString::fromUtf8(hint),
                     QStringLiteral("Back"),
                     QStringLiteral("Continue")}));
    EXPECT_EQ(highlightedDot(), 1);
}

TEST_F(OnboardingViewTest, showsTheShortcutsStep) {
    openAt(2);
    Texts expected{QStringLiteral("Choose your shortcuts"),
                   QStringLiteral("You can change these anytime from the menu bar.")};
    for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
        expected.push_back(QString::fromStdString(std::string(shortcut.title)));
        if (shortcut.recommended) {
            expected.push_back(QStringLiteral("Recommended"));
        }
        expected.push_back(QString::fromStdString(std::string(shortcut.subtitle)));
    }
    expected.push_back(QStringLiteral("Back"));
    expected.push_back(QStringLiteral("Continue"));
    EXPECT_EQ(visibleTexts(*view), expected);
    EXPECT_EQ(highlightedDot(), 2);
}

TEST_F(OnboardingViewTest, showsTheFinishStep) {
    openAt(3);
    EXPECT_EQ(visibleTexts(*view),
              (Texts{QStringLiteral("You're all set"),
                     QStringLiteral("Pallistrom lives in your menu bar. Open it anytime to tweak "
                                    "shortcuts."),
                     QStringLiteral("Launch Pallistrom at login"),
                     QStringLiteral("Back"),
                     QStringLiteral("Done")}));
    EXPECT_EQ(highlightedDot(), 3);
}

TEST_F(OnboardingViewTest, goesOnWithReturnAsWithAClick) {
    open();
    QTest::keyClick(view.get(), Qt::Key_Return);
    EXPECT_EQ(view->step(), 1);
    QTest::keyClick(view.get(), Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(view->step(), 2);
    QTest::mouseClick(&primary(), Qt::LeftButton);
    EXPECT_EQ(view->step(), 3);
    QTest::keyClick(view.get(), Qt::Key_Return);
    EXPECT_EQ(finished, 1);
}

TEST_F(OnboardingViewTest, goesOnWithReturnWhateverHasTheFocus) {
    constexpr int mostControls = 6;
    for (std::int64_t step = 0; step <= OnboardingView::lastStep; ++step) {
        for (int tabs = 0; tabs < mostControls; ++tabs) {
            openAt(step);
            finished = 0;
            for (int tab = 0; tab < tabs; ++tab) {
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            }
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            EXPECT_EQ(view->step() + finished, step + 1) << "after " << tabs << " tabs";
        }
    }
}

TEST_F(OnboardingViewTest, doesNotRunOnWhileReturnIsHeld) {
    open();
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
    QTest::keyPress(view.get(), Qt::Key_Return);
    QApplication::sendEvent(view.get(), &repeat);
    EXPECT_EQ(view->step(), 1);
}

TEST_F(OnboardingViewTest, followsThePermissionWithoutTheUser) {
    openAt(1);
    setTrusted(false);
    EXPECT_TRUE(shows(QString::fromUtf8(hint)));
    setTrusted(true);
    EXPECT_FALSE(shows(QString::fromUtf8(hint)));
    EXPECT_TRUE(shows(QStringLiteral("Accessibility access granted")));
    setTrusted(false);
    EXPECT_TRUE(shows(QString::fromUtf8(hint)));
}

TEST_F(OnboardingViewTest, goesOnWithAndWithoutThePermission) {
    for (const bool trusted : {false, true}) {
        openAt(1);
        setTrusted(trusted);
        EXPECT_TRUE(primary().isEnabled());
        primary().click();
        EXPECT_EQ(view->step(), 2);
    }
}

TEST_F(OnboardingViewTest, opensTheSystemsPageOfPermissions) {
    openAt(1);
    showing<PushButton>(*view, "Open Accessibility Settings…").click();
    EXPECT_EQ(platform.openedURLs.size(), 1U);
}

TEST_F(OnboardingViewTest, remembersThatItIsDoneBeforeItSaysSo) {
    bool wasCompleted = false;
    view = std::make_unique<OnboardingView>(
        state, [&] { wasCompleted = Preferences::hasCompletedOnboarding(); });
    show(*view);
    for (int step = 0; step < 3; ++step) {
        primary().click();
    }
    EXPECT_FALSE(Preferences::hasCompletedOnboarding());
    EXPECT_EQ(primary().text(), QStringLiteral("Done"));
    primary().click();
    EXPECT_TRUE(wasCompleted);
    EXPECT_EQ(view->step(), 3);
}

TEST_F(OnboardingViewTest, saysThatItIsDoneEachTime) {
    openAt(3);
    primary().click();
    primary().click();
    EXPECT_EQ(finished, 2);
}

TEST_F(OnboardingViewTest, remembersNothingWhenItIsClosedInAnotherWay) {
    openAt(3);
    view->close();
    view.reset();
    EXPECT_FALSE(Preferences::hasCompletedOnboarding());
    EXPECT_EQ(finished, 0);
}

TEST_F(OnboardingViewTest, goesBackToTheSwitchesAsTheyWereLeft) {
    openAt(2);
    auto rows = view->findChildren<ShortcutRow*>();
    rows.at(0)->control().click();
    rows.at(3)->control().click();
    primary().click();
    back().click();
    settle();
    EXPECT_EQ(view->step(), 2);
    rows = view->findChildren<ShortcutRow*>();
    EXPECT_FALSE(rows.at(0)->control().isChecked());
    EXPECT_TRUE(rows.at(1)->control().isChecked());
    EXPECT_FALSE(rows.at(2)->control().isChecked());
    EXPECT_TRUE(rows.at(3)->control().isChecked());
}

TEST_F(OnboardingViewTest, goesBackToTheFirstStepAndNoFurther) {
    openAt(3);
    for (std::int64_t step = 2; step >= 0; --step) {
        EXPECT_TRUE(back().isVisible());
        back().click();
        EXPECT_EQ(view->step(), step);
    }
    EXPECT_FALSE(back().isVisible());
    EXPECT_EQ(primary().text(), QStringLiteral("Continue"));
}

TEST_F(OnboardingViewTest, showsWhatTheSystemHasMadeOfTheLoginSwitch) {
    openAt(3);
    expectLoginSwitchShowsWhatCameOfIt(*view);
}

TEST_F(OnboardingViewTest, beginsAnewEachTime) {
    openAt(2);
    open();
    EXPECT_EQ(view->step(), 0);
}

} // namespace

} // namespace pallistrom
