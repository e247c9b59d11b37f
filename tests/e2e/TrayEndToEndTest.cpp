// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Keys.h"
#include "Panel.h"
#include "PanelIcon.h"
#include "Screen.h"
#include "Screenshot.h"
#include "SessionBus.h"
#include "Tools.h"
#include "TrayMenu.h"
#include "TrayProgram.h"
#include "VirtualDisplay.h"

#include <gtest/gtest.h>

#include <csignal>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom::e2e {

namespace {

class Tray : public testing::Test {
protected:
    void SetUp() override {
        const std::string missing = missingPrograms({"Xvfb",
                                                     "openbox",
                                                     "xdotool",
                                                     "dbus-daemon",
                                                     "dbus-monitor",
                                                     "gdbus",
                                                     "xfce4-panel",
                                                     TrayProgram::path()});
        if (!missing.empty()) {
            GTEST_SKIP() << missing;
        }
        display.emplace();
        bus.emplace(display->name());
        screen.emplace(display->name());
        keys.emplace(display->name());
        icon.emplace(display->name());
    }

    void startProgram() {
        program.emplace(bus->environment());
        ASSERT_EQ(program->heard(), "launched");
    }

    void startPanel() { panel.emplace(*bus); }

    [[nodiscard]] bool iconIsShown() const {
        const bool isShown = icon->isShown();
        takePicture();
        return isShown;
    }

    void openMenu() const { EXPECT_TRUE(icon->openMenu()); }

    void choose(int item) const { EXPECT_TRUE(icon->choose(item)); }

    /// For whoever looks at what a test has seen.
    void takePicture() const {
        const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
        saveScreenshot(display->name(),
                       std::string{PICTURE_FOLDER} + "/Tray." + test->name() + ".png");
    }

    std::optional<VirtualDisplay> display;
    std::optional<SessionBus> bus;
    std::optional<Screen> screen;
    std::optional<Keys> keys;
    std::optional<PanelIcon> icon;
    std::optional<Panel> panel;
    std::optional<TrayProgram> program;
};

TEST_F(Tray, showsTheIconInAPanelThatIsThere) {
    startPanel();
    startProgram();
    EXPECT_TRUE(iconIsShown());
}

TEST_F(Tray, showsTheIconInAPanelThatComesThreeSecondsLater) {
    startProgram();
    program->refresh(60);
    startPanel();
    EXPECT_TRUE(iconIsShown());
    openMenu();
}

TEST_F(Tray, showsTheIconAgainWhenThePanelStartsAnew) {
    startPanel();
    startProgram();
    ASSERT_TRUE(iconIsShown());
    panel.reset();
    ASSERT_TRUE(icon->isGone());
    startPanel();
    EXPECT_TRUE(iconIsShown());
    choose(3);
    EXPECT_EQ(program->heard(), "action showSettings");
}

TEST_F(Tray, showsEveryItemOfTheMenuInOrderAndPerformsItsAction) {
    startPanel();
    startProgram();
    ASSERT_TRUE(iconIsShown());
    openMenu();
    takePicture();
    keys->press("Escape");
    ASSERT_TRUE(icon->menuIsGone());
    const std::vector<std::string> actions{"action toggleShortcut: ctrlW",
                                           "action toggleShortcut: ctrlU",
                                           "action showSettings",
                                           "action showOnboarding:",
                                           "action quit"};
    for (std::size_t item = 0; item < actions.size(); ++item) {
        choose(static_cast<int>(item) + 1);
        EXPECT_EQ(program->heard(), actions[item]);
    }
    EXPECT_EQ(program->wait(), 0);
}

TEST_F(Tray, putsTheWarningInFrontOfTheMenu) {
    startPanel();
    startProgram();
    ASSERT_TRUE(iconIsShown());
    program->flip("warning");
    openMenu();
    takePicture();
    keys->press("Escape");
    ASSERT_TRUE(icon->menuIsGone());
    choose(1);
    EXPECT_EQ(program->heard(), "action openAccessibility");
}

TEST_F(Tray, leavesAnOpenMenuAsItIs) {
    startPanel();
    startProgram();
    ASSERT_TRUE(iconIsShown());
    openMenu();
    // A panel shows a menu before the program has heard of it. By the time that it answers us it
    // has.
    EXPECT_FALSE(TrayMenu{*bus}.items().empty());
    program->flip("warning");
    program->refresh(10);
    keys->press("Down");
    keys->press("Return");
    EXPECT_EQ(program->heard(), "action toggleShortcut: ctrlW");
    ASSERT_TRUE(icon->menuIsGone());
    choose(1);
    EXPECT_EQ(program->heard(), "action openAccessibility");
}

TEST_F(Tray, opensSettingsInFrontOnALeftClick) {
    startPanel();
    startProgram();
    ASSERT_TRUE(iconIsShown());
    icon->clickLeft();
    EXPECT_EQ(program->heard(), "action showSettings");
    EXPECT_TRUE(waitUntil([&] { return screen->hasWindow("Window"); }));
    takePicture();
}

TEST_F(Tray, endsWellWithAWindowOpen) {
    startPanel();
    startProgram();
    ASSERT_TRUE(iconIsShown());
    icon->clickLeft();
    EXPECT_EQ(program->heard(), "action showSettings");
    EXPECT_TRUE(waitUntil([&] { return screen->hasWindow("Window"); }));
    choose(5);
    EXPECT_EQ(program->heard(), "action quit");
    EXPECT_EQ(program->wait(), 0);
}

TEST_F(Tray, drawsItsOwnMenuWithItsKeysInATrayOfTheOldKind) {
    if (const std::string missing = missingPrograms({"tint2"}); !missing.empty()) {
        GTEST_SKIP() << missing;
    }
    panel.emplace(*bus, Panel::Tray::XEmbed);
    startProgram();
    ASSERT_TRUE(iconIsShown());
    openMenu();
    takePicture();
    keys->press("ctrl+comma");
    EXPECT_EQ(program->heard(), "action showSettings");
    ASSERT_TRUE(icon->menuIsGone());
    icon->clickLeft();
    EXPECT_EQ(program->heard(), "action showSettings");
    choose(1);
    EXPECT_EQ(program->heard(), "action toggleShortcut: ctrlW");
    // A second click too soon would be the second half of a double click.
    program->refresh(12);
    openMenu();
    program->flip("warning");
    keys->press("ctrl+q");
    EXPECT_EQ(program->heard(), "action quit");
    EXPECT_EQ(program->wait(), 0);
}

/// Everything that is said on a session bus.
class BusTraffic {
public:
    explicit BusTraffic(const SessionBus& bus)
        : m_bus{bus},
          m_process{
              {.arguments = {"dbus-monitor", "--session"}, .environment = bus.environment()}} {
        // It hears nothing before it has told of losing its own name.
        while (!next("member=NameLost")) {
        }
    }

    /// How many messages there have been since the last count, except for what counting takes.
    int count() {
        static_cast<void>(m_bus.call("org.freedesktop.DBus",
                                     "/org/freedesktop/DBus",
                                     "org.freedesktop.DBus.NameHasOwner",
                                     {"end.of.count"}));
        int messages = 0;
        for (std::optional<std::string> line = m_process.readLine(); line;
             line = m_process.readLine()) {
            if (line->find("end.of.count") != std::string::npos) {
                break;
            }
            const bool isOurs = line->find("org.freedesktop.DBus") != std::string::npos;
            if (line->find("member=") != std::string::npos && !isOurs) {
                ++messages;
            }
        }
        return messages;
    }

private:
    bool next(const std::string& part) {
        const auto line = m_process.readLine();
        return !line || line->find(part) != std::string::npos;
    }

    const SessionBus& m_bus;
    ChildProcess m_process;
};

TEST_F(Tray, saysNothingOnTheBusWhenNothingHasChanged) {
    startPanel();
    startProgram();
    ASSERT_TRUE(iconIsShown());
    program->refresh(10);
    BusTraffic traffic{*bus};
    program->refresh(40);
    EXPECT_EQ(traffic.count(), 0);

    program->flip("warning");
    program->refresh(10);
    EXPECT_GT(traffic.count(), 0) << "else the count says nothing";
}

TEST_F(Tray, goesOnWithoutAnyPanelAndShowsTheProgramToWhoeverAskedForIt) {
    auto environment = bus->environment();
    environment["DESKTOP_STARTUP_ID"] = "launcher_TIME1";
    program.emplace(environment);
    ASSERT_EQ(program->heard(), "launched");
    EXPECT_EQ(program->heard(), "reopen");
    EXPECT_TRUE(waitUntil([&] { return screen->hasWindow("Window"); }));

    startPanel();
    EXPECT_TRUE(iconIsShown());
}

TEST_F(Tray, isMissedByNobodyWhereThereIsNoSessionBus) {
    auto environment = bus->environment();
    environment["DBUS_SESSION_BUS_ADDRESS"] = "disabled:";
    program.emplace(environment);
    ASSERT_EQ(program->heard(), "launched");
    program->refresh(5);
    program->flip("warning");
    program->signal(SIGTERM);
    EXPECT_EQ(program->wait(), 128 + SIGTERM);
}

} // namespace

} // namespace pallistrom::e2e
