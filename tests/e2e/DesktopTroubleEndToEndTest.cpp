// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Deadline.h"
#include "DesktopTest.h"
#include "MailProgram.h"
#include "Shortcut.h"
#include "TemporaryFolder.h"
#include "Tools.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace pallistrom::e2e {

namespace {

namespace fs = std::filesystem;

class DesktopWithoutAccess : public DesktopTest {
protected:
    void SetUp() override { start({"-extension", "XTEST"}); }
};

TEST_F(DesktopWithoutAccess, warnsInTheMenuAndSaysWhatIsInTheWay) {
    launchPastTheGuide();
    const auto labels = menu->labels();
    ASSERT_GT(labels.size(), 3U);
    EXPECT_EQ(labels[0], "⚠ Accessibility access needed");
    EXPECT_EQ(labels[1], "-");
    EXPECT_EQ(labels[2], "Shortcuts");
    ASSERT_TRUE(menu->choose(labels[0]));
    EXPECT_TRUE(windowIsShown("Accessibility Access"));
    EXPECT_FALSE(screen->hasWindow(settingsTitle));
    EXPECT_FALSE(isGrabbed(*connection, allShortcuts()[0].grab));
}

TEST_F(DesktopWithoutAccess, offersTheWayInTheSettings) {
    launchPastTheGuide();
    openSettings();
    EXPECT_FALSE(thing(settingsTitle, "label", "Waiting for Accessibility access").name.empty());
    EXPECT_FALSE(thing(settingsTitle, "push button", "Open Settings…").name.empty());
}

class DesktopLoginItem : public DesktopTest {
protected:
    static constexpr const char* loginSwitch = "Launch Pallistrom at login";

    fs::path folder() const { return bus->home().configFolder() / "autostart"; }

    fs::path entry() const { return folder() / "org.pallistrom.Pallistrom.desktop"; }

    void clickTheSwitch() const { click(thing(settingsTitle, "check box", loginSwitch)); }
};

TEST_F(DesktopLoginItem, isWrittenAndRemovedByTheSwitch) {
    launchPastTheGuide();
    openSettings();
    clickTheSwitch();
    EXPECT_TRUE(switchIsOn(settingsTitle, loginSwitch));
    EXPECT_TRUE(fs::exists(entry()));
    std::ifstream file{entry()};
    std::string text{std::istreambuf_iterator<char>{file}, {}};
    EXPECT_NE(text.find("TryExec=" + programFile + '\n'), std::string::npos) << text;

    clickTheSwitch();
    EXPECT_TRUE(switchIsOff(settingsTitle, loginSwitch));
    EXPECT_FALSE(fs::exists(entry()));
    EXPECT_EQ(log(), "");
}

TEST_F(DesktopLoginItem, springsBackWithOneLineInTheLogIfItCannotBeWritten) {
    // Root may write everywhere, but nobody can write into a folder that is a file.
    std::ofstream{folder()} << "in the way";
    launchPastTheGuide();
    openSettings();
    clickTheSwitch();
    ASSERT_TRUE(waitUntil([&] { return !log().empty(); }));
    EXPECT_TRUE(switchIsOff(settingsTitle, loginSwitch));
    const std::string said = log();
    EXPECT_NE(said.find("Pallistrom: launch-at-login change failed: "), std::string::npos) << said;
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
}

/// The program in a folder of its own, with whatever lies beside it.
class DesktopBundle : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        if (!IsSkipped()) {
            const fs::path copy = folder.path() / "bin" / "pallistrom";
            fs::create_directory(copy.parent_path());
            fs::copy_file(programFile, copy);
            programFile = copy;
        }
    }

    void writeInformation(const std::string& text) const {
        const fs::path place = folder.path() / "share" / "pallistrom";
        fs::create_directories(place);
        std::ofstream{place / "Info.json"} << text;
    }

    void expectVersion(const std::string& version) {
        launchPastTheGuide();
        openSettings();
        EXPECT_EQ(thing(settingsTitle, "label", version).name, version);
        EXPECT_EQ(log(), "");
    }

    TemporaryFolder folder;
};

TEST_F(DesktopBundle, saysTheVersionOfItsInformation) {
    writeInformation(R"({"CFBundleShortVersionString": "3.14"})");
    expectVersion("v3.14");
}

TEST_F(DesktopBundle, isVersionOneWithoutInformation) {
    expectVersion("v1.0");
}

TEST_F(DesktopBundle, reportsThatItsVersionIsUnknownWithoutInformation) {
    if (const auto missing = missingPrograms({"xdg-open"}); !missing.empty()) {
        GTEST_SKIP() << missing;
    }
    const MailProgram mail{bus->home()};
    launchPastTheGuide();
    ASSERT_TRUE(menu->choose("Report an Issue…"));
    mail.openGate();
    ASSERT_TRUE(waitUntil([&] { return mail.hasLink(); }));
    const std::string link = mail.link();
    EXPECT_NE(link.find("?subject=Pallistrom%20?%20%E2%80%94"), std::string::npos) << link;
    EXPECT_NE(link.find("%0AApp%20version:%20?%0A"), std::string::npos) << link;
}

TEST_F(DesktopBundle, isVersionOneWithBrokenInformation) {
    writeInformation(R"({"CFBundleShortVersionString": "3.1)");
    expectVersion("v1.0");
}

TEST_F(DesktopBundle, isVersionOneWithAVersionThatIsNoText) {
    writeInformation(R"({"CFBundleShortVersionString": 3.14})");
    expectVersion("v1.0");
}

using DesktopTrouble = DesktopTest;

TEST_F(DesktopTrouble, isGreetedAndServedWithoutASessionBus) {
    environment["DBUS_SESSION_BUS_ADDRESS"] = "disabled:";
    launch();
    ASSERT_TRUE(windowIsShown(guide)) << log();
    EXPECT_TRUE(isGrabbedSoon(allShortcuts()[0].grab));
    screen->closeWindow(guide);
    EXPECT_TRUE(windowIsGone(guide));
    EXPECT_TRUE(isGrabbed(*connection, allShortcuts()[0].grab));
    EXPECT_TRUE(program->isRunning());
}

TEST_F(DesktopTrouble, obeysSettingsThatAreChangedUnderneathAndShowsThemWithTheNextChange) {
    launchPastTheGuide();
    openSettings();
    settings().set({{"shortcut.ctrlK.enabled", true}, {"shortcut.ctrlW.enabled", false}});
    EXPECT_TRUE(isGrabbedSoon(allShortcuts()[2].grab));
    EXPECT_TRUE(isReleasedSoon(allShortcuts()[0].grab));
    EXPECT_TRUE(waitUntil([&] {
        const auto item = menu->find("⌃K   Delete to line end");
        return item && item->isChecked;
    }));

    click(thing(settingsTitle, "check box", "Delete to line start"));
    EXPECT_TRUE(switchIsOff(settingsTitle, "Delete to line start"));
    EXPECT_TRUE(switchIsOff(settingsTitle, "Delete word"));
    EXPECT_TRUE(switchIsOn(settingsTitle, "Delete to line end"));
    EXPECT_TRUE(settings().isTrue("shortcut.ctrlK.enabled"));
}

} // namespace

} // namespace pallistrom::e2e
