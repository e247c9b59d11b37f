// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Deadline.h"
#include "DesktopTest.h"
#include "ReleaseSite.h"
#include "Screenshot.h"
#include "Shortcut.h"
#include "Tools.h"
#include "UnpackedProgram.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <map>
#include <optional>
#include <regex>
#include <string>
#include <system_error>
#include <vector>

namespace pallistrom::e2e {

namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* title = "Software Update";
constexpr const char* newVersion = "98.7";

/// The program in a folder of the user's, unpacked from an archive, and a site with a newer one.
class ProgramUpdate : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        if (IsSkipped()) {
            return;
        }
        if (const auto missing =
                missingPrograms({"base64", "bash", "import", "openssl", "strip", "tar", "xz"});
            !missing.empty()) {
            GTEST_SKIP() << missing;
        }
        site.emplace();
        release();
        programFile = programFolder() / "bin" / "pallistrom";
        launchPastTheGuide();
        icon.emplace(display->name());
        EXPECT_TRUE(icon->isShown());
    }

    /// Unpacks the program of today, and publishes one that is newer.
    void release() {
        const TemporaryFolder workshop;
        const fs::path built = workshop.path() / "pallistrom";
        UnpackedProgram::install(built);
        UnpackedProgram::setInformation(built,
                                        {{"SUFeedURL", site->feedAddress()},
                                         {"SUPublicEDKey", site->publicKey()},
                                         {"SUEnableAutomaticChecks", "false"}});
        const fs::path today = workshop.path() / "today.tar.xz";
        UnpackedProgram::pack(built, today);
        UnpackedProgram::unpack(today, programFolder());
        UnpackedProgram::setInformation(
            built, {{"CFBundleVersion", newVersion}, {"CFBundleShortVersionString", newVersion}});
        UnpackedProgram::pack(built, site->archive(newVersion));
        site->release(newVersion, "Keys are <b>even</b> better.");
    }

    /// Holds nothing but the program.
    [[nodiscard]] fs::path apps() const { return bus->home().path() / "apps"; }

    [[nodiscard]] fs::path programFolder() const { return apps() / "pallistrom"; }

    [[nodiscard]] std::vector<std::string> inApps() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator{apps()}) {
            names.push_back(entry.path().filename());
        }
        return names;
    }

    /// Which file it is that the process runs, whatever its name is by now.
    [[nodiscard]] ino_t runningFile() const {
        return fileNumber("/proc/" + std::to_string(program->id()) + "/exe");
    }

    [[nodiscard]] static ino_t fileNumber(const fs::path& file) {
        struct stat status {};

        if (::stat(file.c_str(), &status) != 0) {
            throw std::system_error{errno, std::generic_category(), file};
        }
        return status.st_ino;
    }

    /// Waits until the window says this, and takes a picture of it.
    void sees(const std::string& headline) {
        EXPECT_EQ(thing(title, "label", headline).name, headline) << log();
        const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
        saveScreenshot(display->name(),
                       std::string{PICTURE_FOLDER} + "/ProgramUpdate." + test +
                           std::to_string(++pictures) + ".png");
    }

    void clickOn(const std::string& button) const {
        const Accessible found = thing(title, "push button", button);
        ASSERT_EQ(found.name, button);
        click(found);
    }

    /// Waits for a progress that is neither none nor all.
    [[nodiscard]] bool progressIsShown() const {
        const std::regex pattern{"([0-9.]+ [kM]B) of ([0-9.]+ [kM]B)"};
        return waitUntil([&] {
            for (const Accessible& accessible : reader->window(title)) {
                std::smatch match;
                if (accessible.role == "label" &&
                    std::regex_match(accessible.name, match, pattern)) {
                    return match[1] != "0 kB" && match[1] != match[2];
                }
            }
            return false;
        });
    }

    void chooseCheckForUpdates() const {
        constexpr int place = 7;
        EXPECT_TRUE(icon->choose(place));
    }

    void acceptTheOffer() {
        chooseCheckForUpdates();
        sees("A new version of Pallistrom is here");
        clickOn("Install Update");
    }

    std::optional<ReleaseSite> site;
    std::optional<PanelIcon> icon;
    int pictures = 0;
};

TEST_F(ProgramUpdate, isWalkedByClicksFromTheMenuToTheNewVersionAtWork) {
    const pid_t process = program->id();
    const ino_t oldFile = runningFile();
    site->halve(newVersion);
    chooseCheckForUpdates();
    sees("A new version of Pallistrom is here");
    EXPECT_EQ(thing(title, "label", "Pallistrom 98.7 is ready; you have " PROJECT_VERSION ".").role,
              "label");
    clickOn("Install Update");
    EXPECT_TRUE(site->halfIsSent());
    EXPECT_TRUE(progressIsShown());
    sees("Downloading Pallistrom 98.7…");
    EXPECT_EQ(fileNumber(programFile), oldFile) << "nothing is replaced by half an archive";
    site->goOn();
    sees("Pallistrom 98.7 is installed");
    EXPECT_NE(fileNumber(programFile), oldFile);
    EXPECT_EQ(runningFile(), oldFile) << "until the user agrees";

    clickOn("Restart Now");
    EXPECT_TRUE(windowIsGone(title));
    EXPECT_TRUE(waitUntil([&] { return runningFile() == fileNumber(programFile); })) << log();
    EXPECT_EQ(program->id(), process);
    EXPECT_TRUE(waitUntil([&] { return !menu->items().empty(); })) << log();
    EXPECT_TRUE(isGrabbedSoon(allShortcuts().front().grab));
    EXPECT_TRUE(waitUntil([&] { return inApps() == std::vector<std::string>{"pallistrom"}; }))
        << testing::PrintToString(inApps());
    // By way of the bus: the panel may still be changing the icon.
    EXPECT_TRUE(menu->choose("Check for Updates…"));
    sees("You're up to date");
    EXPECT_EQ(thing(title, "label", "Pallistrom 98.7 is the newest version there is.").role,
              "label");
}

TEST_F(ProgramUpdate, stopsAtAnArchiveThatSomebodyHasChanged) {
    const ino_t file = runningFile();
    site->tamperWith(newVersion);
    acceptTheOffer();
    sees("Could not install the update");
    EXPECT_THAT(log(), HasSubstr("signature"));
    clickOn("Close");
    EXPECT_TRUE(windowIsGone(title));
    EXPECT_EQ(fileNumber(programFile), file);
    EXPECT_THAT(inApps(), ElementsAre("pallistrom"));
    EXPECT_TRUE(program->isRunning());
    EXPECT_EQ(runningFile(), file);
}

TEST_F(ProgramUpdate, isLeftAloneByADownloadThatIsCancelled) {
    const ino_t file = runningFile();
    site->halve(newVersion);
    acceptTheOffer();
    EXPECT_TRUE(site->halfIsSent());
    EXPECT_TRUE(progressIsShown());
    clickOn("Cancel");
    EXPECT_TRUE(windowIsGone(title));
    EXPECT_TRUE(waitUntil([&] {
        return !fs::exists(bus->home().path() / "cache" / "pallistrom" / "update");
    })) << "no archive is left";
    EXPECT_EQ(fileNumber(programFile), file);
    EXPECT_THAT(inApps(), ElementsAre("pallistrom"));
    EXPECT_TRUE(program->isRunning());
}

} // namespace

} // namespace pallistrom::e2e
