// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ChildProcess.h"
#include "DesktopTest.h"
#include "Environment.h"
#include "PrivateBus.h"
#include "Shortcut.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <optional>
#include <string>

namespace pallistrom {

namespace {

constexpr const char* granted = "0";
constexpr const char* notGranted = "1";
constexpr const char* pane = "Accessibility Access";

/// The program on an X11 display, with a service on a bus of its own that filters nothing.
class KeyboardService : public e2e::DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        if (IsSkipped()) {
            return;
        }
        systemBus.emplace();
        environment["DBUS_SYSTEM_BUS_ADDRESS"] = Environment::value("DBUS_SYSTEM_BUS_ADDRESS");
        settings().set({{"hasCompletedOnboarding", true}});
    }

    void startService(const char* access) {
        service.emplace(
            Command{.arguments = {FAKE_KEYBOARD_SERVICE, access}, .environment = environment});
        ASSERT_TRUE(isTold("ready"));
    }

    // Reads what the service is told up to this, and whether it came. The two seconds of the
    // program's own timer are a small part of the wait.
    [[nodiscard]] bool isTold(const std::string& wanted) {
        const Deadline deadline{std::chrono::seconds{30}};
        told.clear();
        while (const auto line = service->readLine(deadline)) {
            if (*line == wanted) {
                return true;
            }
            told += *line + '\n';
        }
        return false;
    }

    [[nodiscard]] bool x11HasControlW() const {
        return waitUntil([this] { return isGrabbed(*connection, controlW); },
                         Deadline{std::chrono::seconds{30}});
    }

    [[nodiscard]] bool x11HasNoControlW() const {
        return waitUntil([this] { return !isGrabbed(*connection, controlW); },
                         Deadline{std::chrono::seconds{30}});
    }

    const e2e::KeyCombination controlW = e2e::allShortcuts()[0].grab;
    std::optional<PrivateBus> systemBus;
    std::optional<ChildProcess> service;
    std::string told; ///< before what was waited for
};

TEST_F(KeyboardService, filtersInPlaceOfTheX11Tap) {
    startService(granted);
    launch();
    EXPECT_TRUE(isTold("SetTap true"));
    EXPECT_NE(told.find("SetSwitches 3\nSetModifiers "), std::string::npos) << told;
    EXPECT_NE(told.find(" 29:2 "), std::string::npos) << "left control is control: " << told;
    EXPECT_TRUE(told.ends_with("SetFrontApplication 0\n")) << told;
    EXPECT_TRUE(x11HasNoControlW());
}

TEST_F(KeyboardService, takesOverWhenItIsGrantedAndHandsBackWhenItIsWithdrawn) {
    startService(notGranted);
    launch();
    EXPECT_TRUE(x11HasControlW());
    service->writeLine("access 0");
    EXPECT_TRUE(isTold("SetTap true"));
    EXPECT_TRUE(x11HasNoControlW());
    service->writeLine("access 1");
    EXPECT_TRUE(x11HasControlW());
    EXPECT_TRUE(isTold("SetTap false"));
}

TEST_F(KeyboardService, isToldOfASwitchAtOnce) {
    startService(granted);
    launch();
    ASSERT_TRUE(isTold("SetTap true"));
    settings().set({{"shortcut.ctrlK.enabled", true}});
    EXPECT_TRUE(isTold("SetSwitches 7"));
    settings().set({{"shortcut.ctrlK.enabled", true}, {"shortcut.ctrlW.enabled", false}});
    EXPECT_TRUE(isTold("SetSwitches 6"));
}

TEST_F(KeyboardService, isToldEverythingAgainAfterItsOwnRestart) {
    startService(granted);
    launch();
    ASSERT_TRUE(isTold("SetTap true"));
    service->signal(SIGKILL);
    startService(granted);
    EXPECT_TRUE(isTold("SetTap true"));
    EXPECT_NE(told.find("Get\nGetAccess\nSetSwitches 3\nSetModifiers "), std::string::npos) << told;
    EXPECT_TRUE(x11HasNoControlW());
}

TEST_F(KeyboardService, leavesTheKeysToTheX11TapWhenItEnds) {
    startService(granted);
    launch();
    ASSERT_TRUE(isTold("SetTap true"));
    service->signal(SIGKILL);
    EXPECT_TRUE(x11HasControlW());
}

TEST_F(KeyboardService, hearsAGoodbyeWhenTheProgramQuits) {
    startService(granted);
    launch();
    ASSERT_TRUE(isTold("SetTap true"));
    ASSERT_TRUE(waitUntil([this] { return activate("quit"); }));
    EXPECT_EQ(program->wait(), 0);
    EXPECT_TRUE(isTold("gone"));
    EXPECT_TRUE(told.ends_with("SetTap false\n")) << told;
}

TEST_F(KeyboardService, hearsNoGoodbyeWhenTheProgramIsKilled) {
    startService(granted);
    launch();
    ASSERT_TRUE(isTold("SetTap true"));
    program->signal(SIGKILL);
    EXPECT_TRUE(isTold("gone"));
    EXPECT_EQ(told, "");
}

// The panic keys are pressed where keys are filtered, so no way may go on filtering.
TEST_F(KeyboardService, keepsTheX11TapFromFilteringAfterAPanicUntilThePaneIsOpened) {
    startService(granted);
    launch();
    ASSERT_TRUE(isTold("SetTap true"));
    ASSERT_TRUE(x11HasNoControlW());
    service->writeLine("access 2");
    // The menu offers it as soon as it has noticed.
    ASSERT_TRUE(
        waitUntil([this] { return activate("openAccessibility") && screen->hasWindow(pane); },
                  Deadline{std::chrono::seconds{30}}));
    EXPECT_TRUE(isTold("EndPanic"));
    EXPECT_FALSE(isGrabbed(*connection, controlW));
    service->writeLine("access 0");
    EXPECT_TRUE(isTold("SetTap true"));
}

TEST_F(KeyboardService, isGrantedAndWithdrawnInThePane) {
    startService(notGranted);
    settings().set({{"hasCompletedOnboarding", false}});
    launch();
    click(thing(guide, "push button", "Continue"));
    click(thing(guide, "push button", "Open Accessibility Access…"));
    ASSERT_TRUE(switchIsOff(pane, "Pallistrom"));
    click(thing(pane, "check box", "Pallistrom"));
    EXPECT_TRUE(isTold("RequestGrant"));
    EXPECT_TRUE(switchIsOn(pane, "Pallistrom"));
    service->writeLine("grant 1");
    EXPECT_TRUE(switchIsOff(pane, "Pallistrom")) << "it springs back";

    click(thing(pane, "check box", "Pallistrom"));
    EXPECT_TRUE(isTold("RequestGrant"));
    service->writeLine("access 0");
    service->writeLine("grant 0");
    EXPECT_TRUE(isTold("SetTap true"));
    EXPECT_TRUE(switchIsOn(pane, "Pallistrom"));

    click(thing(pane, "check box", "Pallistrom"));
    EXPECT_TRUE(isTold("WithdrawGrant"));
    service->writeLine("access 1");
    EXPECT_TRUE(switchIsOff(pane, "Pallistrom"));
    EXPECT_TRUE(x11HasControlW());
}

TEST_F(KeyboardService, thatIsNotThereLeavesAllAsItWas) {
    launch();
    EXPECT_TRUE(x11HasControlW());
    EXPECT_EQ(log(), "");
}

TEST_F(KeyboardService, onABusThatHangsHoldsNothingUp) {
    systemBus->signal(SIGSTOP);
    launch();
    EXPECT_TRUE(x11HasControlW());
    ASSERT_TRUE(waitUntil([this] { return activate("quit"); }));
    EXPECT_EQ(program->wait(), 0);
    EXPECT_EQ(log(), "");
    systemBus->signal(SIGCONT);
}

} // namespace

} // namespace pallistrom
