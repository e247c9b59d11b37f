// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Panel.h"
#include "Screen.h"
#include "SessionBus.h"
#include "Tools.h"
#include "TrayProgram.h"
#include "VirtualDisplay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom::e2e {

namespace {

const std::string busName = "org.pallistrom.Pallistrom";
const std::string objectPath = "/org/pallistrom/Pallistrom";

class OneInstance : public testing::Test {
protected:
    void SetUp() override {
        const std::string missing = missingPrograms(
            {"Xvfb", "openbox", "xdotool", "dbus-daemon", "gdbus", TrayProgram::path()});
        if (!missing.empty()) {
            GTEST_SKIP() << missing;
        }
        display.emplace();
        bus.emplace(display->name());
    }

    void startFirst() {
        first.emplace(bus->environment());
        ASSERT_EQ(first->heard(), "launched");
    }

    std::filesystem::path errorFile() const { return bus->home().path() / "second.log"; }

    std::string errors() const {
        std::ifstream file{errorFile()};
        return {std::istreambuf_iterator<char>{file}, {}};
    }

    bool call(const std::string& method, const std::vector<std::string>& arguments) const {
        return bus->call(busName, objectPath, "org.freedesktop.Application." + method, arguments);
    }

    bool action(const std::string& name, const std::string& parameters = "[]") const {
        return call("ActivateAction", {name, parameters, "{}"});
    }

    std::optional<VirtualDisplay> display;
    std::optional<SessionBus> bus;
    std::optional<TrayProgram> first;
};

TEST_F(OneInstance, isShownByASecondStartWhichEndsWell) {
    startFirst();
    TrayProgram second{bus->environment()};
    EXPECT_EQ(second.wait(), 0);
    EXPECT_EQ(first->heard(), "reopen");
    EXPECT_TRUE(waitUntil([&] { return Screen{display->name()}.hasWindow("Window"); }));
}

TEST_F(OneInstance, letsNoSecondOneRunWhileItHangs) {
    startFirst();
    first->signal(SIGSTOP);
    TrayProgram second{bus->environment(), errorFile()};
    EXPECT_EQ(second.wait(), 1);
    EXPECT_NE(errors().find("Pallistrom: "), std::string::npos);
    EXPECT_EQ(second.heard(), "nothing");
    first->signal(SIGCONT);
}

TEST_F(OneInstance, givesItsPlaceToTheNextWhenItIsGone) {
    startFirst();
    first->signal(SIGKILL);
    EXPECT_EQ(first->wait(), 128 + SIGKILL);
    startFirst();
}

TEST_F(OneInstance, runsAloneWithoutASessionBus) {
    auto environment = bus->environment();
    environment["DBUS_SESSION_BUS_ADDRESS"] = "disabled:";
    TrayProgram one{environment};
    TrayProgram other{environment};
    EXPECT_EQ(one.heard(), "launched");
    EXPECT_EQ(other.heard(), "launched");
}

TEST_F(OneInstance, performsTheActionsOfItsMenu) {
    startFirst();
    EXPECT_TRUE(action("showOnboarding"));
    EXPECT_EQ(first->heard(), "action showOnboarding:");
    EXPECT_TRUE(action("toggleShortcut", "[<'ctrlU'>]"));
    EXPECT_EQ(first->heard(), "action toggleShortcut: ctrlU");
    EXPECT_TRUE(action("quit"));
    EXPECT_EQ(first->heard(), "action quit");
    EXPECT_EQ(first->wait(), 0);
}

TEST_F(OneInstance, performsNoActionsThatItsMenuDoesNotShow) {
    startFirst();
    EXPECT_TRUE(action("openAccessibility"));
    EXPECT_TRUE(action("toggleShortcut", "[<'unknown'>]"));
    EXPECT_TRUE(action("toggleShortcut"));
    EXPECT_TRUE(action("toggleShortcut:", "[<'ctrlU'>]"));
    EXPECT_TRUE(action("showSettings", "[<'ctrlU'>]"));
    EXPECT_TRUE(action(""));
    EXPECT_TRUE(call("Activate", {"{}"}));
    EXPECT_EQ(first->heard(), "reopen") << "and nothing before it";
}

TEST_F(OneInstance, refusesWhatIsNoCall) {
    startFirst();
    EXPECT_FALSE(call("Activate", {}));
    EXPECT_FALSE(call("Activate", {"'text'"}));
    EXPECT_FALSE(action("quit", "[<5>]"));
    EXPECT_FALSE(call("Quit", {}));
    EXPECT_TRUE(call("Open", {"['file:///nowhere']", "{'activation-token': <5>}"}));
    EXPECT_EQ(first->heard(), "reopen") << "and nothing before it";
}

TEST_F(OneInstance, thatTheBusStartsShowsNothingMoreThanALaunchForTheCallThatStartedIt) {
    if (const auto missing = missingPrograms({"xfce4-panel"}); !missing.empty()) {
        GTEST_SKIP() << missing;
    }
    const Panel panel{*bus};
    bus->addService(busName, TrayProgram::path() + " --gapplication-service");
    EXPECT_TRUE(call("Activate", {"{}"}));
    EXPECT_EQ(bus->readLine(), "launched");
    EXPECT_TRUE(action("showOnboarding"));
    EXPECT_EQ(bus->readLine(), "action showOnboarding:") << "and nothing before it";
    EXPECT_TRUE(call("Activate", {"{}"}));
    EXPECT_EQ(bus->readLine(), "reopen");
    EXPECT_TRUE(action("quit"));
}

TEST_F(OneInstance, thatTheBusStartsShowsItselfWhereThereIsNoTray) {
    bus->addService(busName, TrayProgram::path() + " --gapplication-service");
    EXPECT_TRUE(call("Activate", {"{}"}));
    EXPECT_EQ(bus->readLine(), "launched");
    EXPECT_EQ(bus->readLine(), "reopen");
    EXPECT_TRUE(action("quit"));
}

TEST_F(OneInstance, saysInOneLineThatThereIsNoDisplay) {
    auto environment = bus->environment();
    for (const char* name : {":31999", ""}) {
        SCOPED_TRACE(name);
        environment["DISPLAY"] = name;
        std::filesystem::remove(errorFile());
        TrayProgram program{environment, errorFile()};
        EXPECT_EQ(program.wait(), 1);
        const std::string said = errors();
        EXPECT_NE(said.find("Pallistrom: there is no display"), std::string::npos) << said;
        EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
    }
}

} // namespace

} // namespace pallistrom::e2e
