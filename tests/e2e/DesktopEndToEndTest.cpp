// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Deadline.h"
#include "DesktopTest.h"
#include "MailProgram.h"
#include "Shortcut.h"
#include "Tools.h"

#include <chrono>
#include <regex>
#include <string>
#include <vector>

namespace pallistrom::e2e {

namespace {

const Shortcut& controlK = allShortcuts()[2];
constexpr const char* controlKSwitch = "Delete to line end";
constexpr const char* controlKItem = "⌃K   Delete to line end";
constexpr const char* controlKSetting = "shortcut.ctrlK.enabled";
constexpr const char* flag = "hasCompletedOnboarding";

using DesktopGuide = DesktopTest;

TEST_F(DesktopGuide, opensAtTheFirstLaunchIsWalkedToDoneWithReturnAndDoesNotComeBack) {
    launch();
    ASSERT_TRUE(windowIsShown(guide)) << log();
    for (const char* step : {"Step 1 of 4", "Step 2 of 4", "Step 3 of 4", "Step 4 of 4"}) {
        EXPECT_EQ(thing(guide, "label", step).name, step);
        EXPECT_FALSE(settings().isTrue(flag)) << step;
        keys->press("Return");
    }
    EXPECT_TRUE(windowIsGone(guide));
    EXPECT_TRUE(settings().isTrue(flag));
    EXPECT_TRUE(program->isRunning());

    terminate();
    startPanel();
    launch();
    // A guide that is open comes to the front instead of the settings.
    openSettings();
    EXPECT_FALSE(screen->hasWindow(guide));
}

TEST_F(DesktopGuide, comesBackAtTheNextLaunchIfItWasClosed) {
    launch();
    ASSERT_TRUE(windowIsShown(guide)) << log();
    screen->closeWindow(guide);
    EXPECT_TRUE(windowIsGone(guide));
    EXPECT_FALSE(settings().isTrue(flag));
    EXPECT_TRUE(program->isRunning());

    terminate();
    launch();
    EXPECT_TRUE(windowIsShown(guide));
}

/// What the system calls itself, as links say it.
std::string systemName() {
    ChildProcess shell{
        {.arguments = {"sh", "-c", ". /etc/os-release && echo \"$NAME\""}, .environment = {}}};
    std::string name = shell.readLine().value_or("");
    for (auto space = name.find(' '); space != std::string::npos; space = name.find(' ')) {
        name.replace(space, 1, "%20");
    }
    return name;
}

class DesktopMenu : public DesktopTest {
protected:
    /// Items of the panel's menu by how often Down leads to them.
    static constexpr int controlKPlace = 3;
    static constexpr int settingsPlace = 5;
    static constexpr int guidePlace = 6;
    static constexpr int reportPlace = 8;
    static constexpr int quitPlace = 9;

    void SetUp() override {
        DesktopTest::SetUp();
        if (!IsSkipped()) {
            launchPastTheGuide();
            icon.emplace(display->name());
            EXPECT_TRUE(icon->isShown());
        }
    }

    void choose(int place) const { EXPECT_TRUE(icon->choose(place)); }

    std::optional<PanelIcon> icon;
};

TEST_F(DesktopMenu, readsAsItShould) {
    const std::vector<std::string> expected{"Shortcuts",
                                            "⌃W   Delete word",
                                            "⌃U   Delete to line start",
                                            controlKItem,
                                            "⌥D   Delete word forward",
                                            "-",
                                            "Settings…",
                                            "Onboarding…",
                                            "Check for Updates…",
                                            "Report an Issue…",
                                            "-",
                                            "Quit Pallistrom"};
    EXPECT_EQ(menu->labels(), expected);
}

TEST_F(DesktopMenu, switchesAShortcutAndAnOpenWindowFollows) {
    openSettings();
    EXPECT_TRUE(switchIsOff(settingsTitle, controlKSwitch));
    choose(controlKPlace);
    EXPECT_TRUE(switchIsOn(settingsTitle, controlKSwitch));
    EXPECT_TRUE(settings().isTrue(controlKSetting));
    EXPECT_TRUE(isGrabbedSoon(controlK.grab));
    choose(controlKPlace);
    EXPECT_TRUE(switchIsOff(settingsTitle, controlKSwitch));
    EXPECT_FALSE(settings().isTrue(controlKSetting));
    EXPECT_TRUE(isReleasedSoon(controlK.grab));
}

TEST_F(DesktopMenu, followsASwitchInAWindowWithinTwoSeconds) {
    openSettings();
    click(thing(settingsTitle, "check box", controlKSwitch));
    const Deadline deadline{std::chrono::seconds{3}}; // one of them for reading the menu
    EXPECT_TRUE(waitUntil(
        [&] {
            const auto item = menu->find(controlKItem);
            return item && item->isChecked;
        },
        deadline));
    EXPECT_TRUE(settings().isTrue(controlKSetting));
    EXPECT_TRUE(isGrabbedSoon(controlK.grab));
}

TEST_F(DesktopMenu, opensTheWindowsAndQuits) {
    choose(settingsPlace);
    EXPECT_TRUE(windowIsShown(settingsTitle));
    click(thing(settingsTitle, "push button", "Replay Onboarding"));
    EXPECT_TRUE(windowIsShown(guide));
    EXPECT_TRUE(windowIsGone(settingsTitle));
    screen->closeWindow(guide);
    EXPECT_TRUE(windowIsGone(guide));
    choose(guidePlace);
    EXPECT_TRUE(windowIsShown(guide));

    EXPECT_TRUE(isGrabbedSoon(allShortcuts()[0].grab));
    choose(quitPlace);
    EXPECT_EQ(program->wait(), 0);
    EXPECT_FALSE(isGrabbed(*connection, allShortcuts()[0].grab));
    EXPECT_EQ(log(), "");
}

TEST_F(DesktopMenu, writesAReportToSupportByteForByte) {
    if (const auto missing = missingPrograms({"xdg-open"}); !missing.empty()) {
        GTEST_SKIP() << missing;
    }
    const MailProgram mail{bus->home()};
    choose(reportPlace);
    mail.openGate();
    ASSERT_TRUE(waitUntil([&] { return mail.hasLink(); }));
    const std::string version = PROJECT_VERSION;
    const std::string link = mail.link();
    EXPECT_TRUE(link.starts_with(
        "mailto:support@pallistrom.invalid?subject=Pallistrom%20" + version +
        "%20%E2%80%94%20issue%20report&body=Describe%20what%20happened:%0A%0A%0A---%0A"
        "Please%20keep%20the%20details%20below%20so%20I%20can%20help%20faster:%0A"
        "App%20version:%20" +
        version + "%0A" + systemName() + ":%20"))
        << link;
    EXPECT_TRUE(std::regex_search(link, std::regex{":%20[0-9]+[.][0-9]+[.][0-9]+$"})) << link;
}

TEST_F(DesktopMenu, isLeftWithTheButtonOfTheSettings) {
    openSettings();
    click(thing(settingsTitle, "push button", "Quit Pallistrom"));
    EXPECT_EQ(program->wait(), 0);
    EXPECT_FALSE(isGrabbed(*connection, allShortcuts()[0].grab));
}

} // namespace

} // namespace pallistrom::e2e
