// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/access/AccessPane.h"

#include "Environment.h"
#include "TemporaryFolder.h"
#include "keyboardservice/FakeKeyboardService.h"
#include "platform/linux/access/GrantSwitch.h"
#include "workspace/WindowLoop.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>

namespace pallistrom {

namespace {

using KeyboardInterface::GrantAnswer;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class AccessPaneTest : public testing::Test {
protected:
    [[nodiscard]] std::string text(const char* name) const {
        return pane.findChild<QLabel*>(QString::fromLatin1(name))->text().toStdString();
    }

    [[nodiscard]] GrantSwitch& grantSwitch() const { return *pane.findChild<GrantSwitch*>(); }

    // The pane is open, and what it said for that is gone.
    void open() {
        pane.show();
        service.take();
    }

    // As if nothing else could filter keys here.
    void say(std::optional<Obstacle> value) {
        obstacle = value;
        service.say(value);
    }

    WindowLoop loop;
    std::optional<Obstacle> obstacle = Obstacle::NotGranted;
    FakeKeyboardService service;
    int looks = 0;
    bool knowsFront = true;
    AccessPane pane{service,
                    {.findObstacle =
                         [this] {
                             ++looks;
                             return obstacle;
                         },
                     .knowsWhoIsInFront =
                         [this] {
                             return knowsFront;
                         }}};
};

// --- What it says.

TEST_F(AccessPaneTest, saysHowToGrant) {
    open();
    EXPECT_EQ(text("headline"), "Pallistrom may not filter keys yet");
    EXPECT_THAT(text("explanation"), HasSubstr("Switch it on"));
    EXPECT_TRUE(grantSwitch().isEnabled());
    EXPECT_FALSE(grantSwitch().isChecked());
}

TEST_F(AccessPaneTest, followsTheServiceAtOnce) {
    open();
    say(std::nullopt);
    EXPECT_EQ(text("headline"), "Pallistrom can filter keys here");
    EXPECT_TRUE(grantSwitch().isChecked());
    say(Obstacle::NotLocal);
    EXPECT_EQ(text("headline"), "Pallistrom cannot filter keys here");
    EXPECT_FALSE(grantSwitch().isChecked());
}

TEST_F(AccessPaneTest, saysWhatIsInTheWayOfTheService) {
    open();
    say(Obstacle::ServiceNotInstalled);
    EXPECT_THAT(text("explanation"), HasSubstr("not installed"));
    EXPECT_THAT(text("explanation"), HasSubstr("pallistrom-keyboard-service"));
    EXPECT_FALSE(grantSwitch().isEnabled());
    say(Obstacle::ServiceMismatch);
    EXPECT_THAT(text("explanation"), HasSubstr("different versions"));
    EXPECT_FALSE(grantSwitch().isEnabled());
    say(Obstacle::NoVirtualKeyboard);
    EXPECT_THAT(text("explanation"), HasSubstr("uinput"));
}

TEST_F(AccessPaneTest, saysThatAnX11SessionNeedsNoService) {
    obstacle.reset();
    service.say(Obstacle::ServiceNotInstalled);
    pane.show();
    EXPECT_EQ(text("headline"), "Pallistrom can filter keys here");
    EXPECT_THAT(text("explanation"), HasSubstr("X11 session"));
    EXPECT_THAT(text("explanation"), HasSubstr("not installed"));
    service.say(std::nullopt);
    EXPECT_THAT(text("explanation"), Not(HasSubstr("X11 session")));
}

TEST_F(AccessPaneTest, followsWhatNobodySignalsWhileItIsOpen) {
    open();
    obstacle.reset();
    EXPECT_TRUE(
        loop.runUntil([&] { return text("headline") == "Pallistrom can filter keys here"; }));
    obstacle = Obstacle::NoXTest;
    EXPECT_TRUE(
        loop.runUntil([&] { return text("headline") == "Pallistrom cannot filter keys here"; }));
}

TEST_F(AccessPaneTest, looksAtOnceWhenItIsOpenedAndNotWhileItIsClosed) {
    EXPECT_FALSE(pane.isLooking());
    pane.show();
    EXPECT_TRUE(pane.isLooking());
    pane.close();
    EXPECT_FALSE(pane.isLooking());
    obstacle.reset();
    const int before = looks;
    pane.show();
    EXPECT_GT(looks, before);
    EXPECT_THAT(text("headline"), HasSubstr("can filter"));
    EXPECT_TRUE(pane.isLooking());
}

// --- The switch.

TEST_F(AccessPaneTest, asksForTheGrantAndShowsItOnceItIsThere) {
    open();
    grantSwitch().click();
    EXPECT_THAT(service.take(), ElementsAre("requestGrant"));
    EXPECT_TRUE(grantSwitch().isChecked()) << "while somebody is asked";
    EXPECT_THAT(text("explanation"), HasSubstr("another window"));
    say(std::nullopt);
    service.close(GrantAnswer::Granted);
    EXPECT_TRUE(grantSwitch().isChecked());
}

TEST_F(AccessPaneTest, springsBackWhenItIsRefused) {
    open();
    grantSwitch().click();
    service.close(GrantAnswer::Denied);
    EXPECT_FALSE(grantSwitch().isChecked());
    EXPECT_THAT(text("explanation"), HasSubstr("not given"));
    grantSwitch().click();
    EXPECT_TRUE(grantSwitch().isChecked());
    service.close(std::nullopt);
    EXPECT_FALSE(grantSwitch().isChecked());
    EXPECT_THAT(text("explanation"), HasSubstr("Switch it on"));
}

TEST_F(AccessPaneTest, saysThatNobodyCanBeAsked) {
    open();
    grantSwitch().click();
    service.close(GrantAnswer::NoAgent);
    EXPECT_FALSE(grantSwitch().isChecked());
    EXPECT_THAT(text("explanation"), HasSubstr("No authentication agent is running"));
    grantSwitch().click();
    service.close(GrantAnswer::Busy);
    EXPECT_THAT(text("explanation"), HasSubstr("asked already"));
}

TEST_F(AccessPaneTest, withdrawsTheGrantAndShowsItOnceItIsGone) {
    open();
    say(std::nullopt);
    grantSwitch().click();
    EXPECT_THAT(service.take(), ElementsAre("withdrawGrant"));
    EXPECT_TRUE(grantSwitch().isChecked()) << "the service has not said so yet";
    say(Obstacle::NotGranted);
    EXPECT_FALSE(grantSwitch().isChecked());
}

TEST_F(AccessPaneTest, isMovedByAssistiveTechnology) {
    open();
    grantSwitch().toggle(); // As it does it.
    EXPECT_THAT(service.take(), ElementsAre("requestGrant"));
    say(std::nullopt);
    service.close(GrantAnswer::Granted);
    grantSwitch().toggle();
    EXPECT_THAT(service.take(), ElementsAre("withdrawGrant"));
    EXPECT_TRUE(grantSwitch().isChecked()) << "the service has not said so yet";
}

TEST_F(AccessPaneTest, isMovedByTheKeyboard) {
    open();
    grantSwitch().setFocus();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    QCoreApplication::sendEvent(&grantSwitch(), &press);
    QCoreApplication::sendEvent(&grantSwitch(), &release);
    EXPECT_THAT(service.take(), ElementsAre("requestGrant"));
}

TEST_F(AccessPaneTest, isACheckBoxWithANameForAssistiveTechnology) {
    open();
    QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&grantSwitch());
    ASSERT_NE(interface, nullptr);
    EXPECT_EQ(interface->role(), QAccessible::CheckBox);
    EXPECT_EQ(interface->text(QAccessible::Name).toStdString(), "Pallistrom");
    EXPECT_THAT(interface->text(QAccessible::Description).toStdString(),
                HasSubstr(text("explanation")));
    EXPECT_FALSE(interface->state().checked);
    say(std::nullopt);
    EXPECT_TRUE(interface->state().checked);
}

// --- Opening it.

TEST_F(AccessPaneTest, endsAPanicByBeingOpened) {
    say(Obstacle::Panicked);
    service.take();
    pane.show();
    EXPECT_THAT(service.take(), Contains("endPanic"));
}

TEST_F(AccessPaneTest, leavesAPanicAloneThatComesWhileItIsOpenUntilItIsSwitchedOn) {
    open();
    say(Obstacle::Panicked);
    EXPECT_THAT(service.take(), IsEmpty());
    EXPECT_FALSE(grantSwitch().isChecked());
    EXPECT_THAT(text("explanation"), HasSubstr("Backspace, Escape and Enter"));
    grantSwitch().click();
    EXPECT_THAT(service.take(), ElementsAre("endPanic"));
}

TEST_F(AccessPaneTest, looksForTheServiceAgainByBeingOpened) {
    pane.show();
    EXPECT_THAT(service.take(), ElementsAre("lookAgain"));
}

// --- How it looks.

TEST_F(AccessPaneTest, showsAllOfEachText) {
    constexpr auto last = static_cast<int>(Obstacle::NoVirtualKeyboard);
    for (int i = static_cast<int>(Obstacle::NoSystemBus); i <= last; ++i) {
        for (const bool isX11 : {false, true}) {
            pane.show();
            service.say(static_cast<Obstacle>(i));
            obstacle = isX11 ? std::nullopt : std::optional(static_cast<Obstacle>(i));
            pane.hide();
            pane.show();
            loop.drain();
            for (const char* const name : {"name", "headline", "explanation"}) {
                const auto* const label = pane.findChild<QLabel*>(QString::fromLatin1(name));
                EXPECT_FALSE(label->text().isEmpty());
                EXPECT_GE(label->height(), label->heightForWidth(label->width()));
                EXPECT_TRUE(pane.rect().contains(label->geometry()));
            }
        }
    }
}

TEST_F(AccessPaneTest, isClosedByItsButton) {
    open();
    pane.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Close)->click();
    EXPECT_FALSE(pane.isVisible());
}

// --- Applications.

TEST_F(AccessPaneTest, leadsToTheApplicationsThatAreLeftAlone) {
    const TemporaryFolder home;
    Environment::set("XDG_CONFIG_HOME", home.path().string());
    open();
    for (QAbstractButton* const button : pane.findChild<QDialogButtonBox*>()->buttons()) {
        if (button->text() == QStringLiteral("Applications…")) {
            button->click();
        }
    }
    const auto windows = QApplication::topLevelWidgets();
    const auto shown = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->windowTitle() == QStringLiteral("Applications") && window->isVisible();
    });
    ASSERT_NE(shown, windows.end());
    delete *shown;
}

TEST_F(AccessPaneTest, saysWhereTerminalsCannotBeToldApart) {
    knowsFront = false;
    open();
    EXPECT_EQ(text("advice"), "") << "keys are not filtered anyway";
    say(std::nullopt);
    EXPECT_THAT(text("advice"), HasSubstr("Terminals cannot be told apart"));
    knowsFront = true;
    say(std::nullopt);
    EXPECT_EQ(text("advice"), "");
}

} // namespace

} // namespace pallistrom
