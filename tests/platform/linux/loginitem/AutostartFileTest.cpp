// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/loginitem/AutostartFile.h"

#include "AutostartHome.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <filesystem>
#include <string>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;
using enum SMAppServiceStatus;
using testing::ElementsAre;
using testing::HasSubstr;

// Counts how often a file is opened.
class OpenCount {
public:
    explicit OpenCount(const fs::path& path) : m_descriptor(inotify_init1(IN_NONBLOCK)) {
        EXPECT_GE(inotify_add_watch(m_descriptor, path.c_str(), IN_OPEN), 0);
    }

    OpenCount(const OpenCount&) = delete;
    OpenCount& operator=(const OpenCount&) = delete;

    ~OpenCount() { close(m_descriptor); }

    // Returns the count since the last call. Several in a row are one to the kernel.
    [[nodiscard]] int take() const {
        int count = 0;
        inotify_event event{};
        while (read(m_descriptor, &event, sizeof event) == sizeof event) {
            ++count;
        }
        return count;
    }

private:
    int m_descriptor;
};

class AutostartFileTest : public testing::Test {
protected:
    // What a program that starts now says.
    [[nodiscard]] SMAppServiceStatus freshStatus() const {
        return AutostartFile(home.places()).status();
    }

    void enable() {
        const auto error = file.enable();
        EXPECT_FALSE(error) << error->localizedDescription;
    }

    void disable() {
        const auto error = file.disable();
        EXPECT_FALSE(error) << error->localizedDescription;
    }

    AutostartHome home;
    AutostartFile file{home.places()};
};

TEST_F(AutostartFileTest, isNotThereAtFirst) {
    EXPECT_EQ(file.status(), SMAppServiceStatusNotRegistered);
    EXPECT_FALSE(fs::exists(home.folder()));
}

TEST_F(AutostartFileTest, isMadeWithItsFolderAndStartsUs) {
    enable();
    EXPECT_EQ(file.status(), SMAppServiceStatusEnabled);
    EXPECT_EQ(freshStatus(), SMAppServiceStatusEnabled);
    EXPECT_THAT(home.names(), ElementsAre("pallistrom.desktop"));
    const auto program = home.program().string();
    EXPECT_THAT(AutostartHome::text(home.file()), HasSubstr("\nExec=" + program + "\n"));
    EXPECT_THAT(AutostartHome::text(home.file()), HasSubstr("\nTryExec=" + program + "\n"));
}

TEST_F(AutostartFileTest, isGoneOnceWeAreDisabled) {
    enable();
    disable();
    EXPECT_EQ(file.status(), SMAppServiceStatusNotRegistered);
    EXPECT_FALSE(fs::exists(home.file()));
}

TEST_F(AutostartFileTest, waitsForApprovalWhileTheDesktopHasSwitchedItOff) {
    enable();
    const auto ours = AutostartHome::text(home.file());
    for (const std::string line : {"Hidden=true\n", "X-GNOME-Autostart-enabled=false\n"}) {
        AutostartHome::put(home.file(), ours + line);
        EXPECT_EQ(file.status(), SMAppServiceStatusRequiresApproval);
    }
    AutostartHome::put(home.file(), ours);
    EXPECT_EQ(file.status(), SMAppServiceStatusEnabled);
}

TEST_F(AutostartFileTest, isSwitchedOnAgainByAskingAgain) {
    enable();
    AutostartHome::put(home.file(), AutostartHome::text(home.file()) + "Hidden=true\nX-Foo=1\n");
    ASSERT_EQ(file.status(), SMAppServiceStatusRequiresApproval);
    enable();
    EXPECT_EQ(file.status(), SMAppServiceStatusEnabled);
    EXPECT_THAT(AutostartHome::text(home.file()), HasSubstr("X-Foo=1\n"));
}

TEST_F(AutostartFileTest, mayWaitForApprovalAndBeDisabled) {
    enable();
    AutostartHome::put(home.file(), AutostartHome::text(home.file()) + "Hidden=true\n");
    disable();
    EXPECT_EQ(file.status(), SMAppServiceStatusNotRegistered);
}

TEST_F(AutostartFileTest, cannotBeDisabledTwice) {
    const auto error = file.disable();
    ASSERT_TRUE(error);
    EXPECT_THAT(error->localizedDescription, HasSubstr("does not start at login"));
}

TEST_F(AutostartFileTest, thatWasEditedByHandKeepsEditsThroughOffAndOn) {
    const std::string edits = "Comment[de]=Meins\n# my remark\nX-GNOME-Autostart-Delay=5\n";
    AutostartHome::put(home.file(), home.entry(edits));
    ASSERT_EQ(file.status(), SMAppServiceStatusEnabled);
    disable();
    EXPECT_EQ(freshStatus(), SMAppServiceStatusNotRegistered);
    EXPECT_THAT(AutostartHome::text(home.file()), HasSubstr(edits));
    enable();
    EXPECT_EQ(freshStatus(), SMAppServiceStatusEnabled);
    EXPECT_THAT(AutostartHome::text(home.file()), HasSubstr(edits));
}

TEST_F(AutostartFileTest, thatIsALinkKeepsBeingOne) {
    AutostartHome::put(home.path() / "dotfiles" / "entry", home.entry("Hidden=true\n"));
    fs::create_directories(home.folder());
    fs::create_symlink(home.path() / "dotfiles" / "entry", home.file());
    enable();
    EXPECT_TRUE(fs::is_symlink(home.file()));
    EXPECT_EQ(file.status(), SMAppServiceStatusEnabled);
}

// --- The system's entry.

TEST_F(AutostartFileTest, countsBeforeTheSystems) {
    AutostartHome::put(home.systemFile(), home.entry());
    EXPECT_EQ(file.status(), SMAppServiceStatusEnabled);
    AutostartHome::put(home.file(), home.entry("Hidden=true\n"));
    EXPECT_EQ(file.status(), SMAppServiceStatusNotRegistered);
    fs::remove(home.file());
    EXPECT_EQ(file.status(), SMAppServiceStatusEnabled);
}

TEST_F(AutostartFileTest, hidesTheSystemsOnceWeAreDisabled) {
    AutostartHome::put(home.systemFile(), home.entry("Name=System\n"));
    const auto before = AutostartHome::text(home.systemFile());
    disable();
    EXPECT_EQ(freshStatus(), SMAppServiceStatusNotRegistered);
    EXPECT_EQ(AutostartHome::text(home.systemFile()), before);
    enable();
    EXPECT_EQ(freshStatus(), SMAppServiceStatusEnabled);
    disable();
    EXPECT_EQ(freshStatus(), SMAppServiceStatusNotRegistered);
}

// --- The program.

TEST_F(AutostartFileTest, isNotFoundOnceTheProgramIsGone) {
    enable();
    ASSERT_EQ(file.status(), SMAppServiceStatusEnabled);
    fs::remove(home.program());
    EXPECT_EQ(file.status(), SMAppServiceStatusNotFound);
    const auto error = file.enable();
    ASSERT_TRUE(error);
    EXPECT_THAT(error->localizedDescription, HasSubstr("not there any more"));
}

TEST_F(AutostartFileTest, isNotFoundWhileNobodyMayRunTheProgram) {
    enable();
    fs::permissions(home.program(), fs::perms::owner_read);
    EXPECT_EQ(file.status(), SMAppServiceStatusNotFound);
}

TEST_F(AutostartFileTest, staysOursWhenAnUpdateReplacesTheProgram) {
    enable();
    AutostartHome::put(home.path() / "new", "new");
    fs::permissions(home.path() / "new", fs::perms::owner_all);
    fs::rename(home.path() / "new", home.program());
    EXPECT_EQ(file.status(), SMAppServiceStatusEnabled);
}

TEST_F(AutostartFileTest, mayNameTheProgramByALinkOrWithoutItsFolder) {
    fs::create_symlink(home.program(), home.path() / "link");
    for (const std::string& name : {(home.path() / "link").string(), std::string("pallistrom")}) {
        AutostartHome::put(home.file(), "[Desktop Entry]\nType=Application\nExec=" + name);
        EXPECT_EQ(freshStatus(), SMAppServiceStatusEnabled) << name;
    }
}

TEST_F(AutostartFileTest, ofAnotherCopyOfTheProgramBecomesOursByAsking) {
    AutostartHome::put(home.path() / "old" / "pallistrom", "");
    fs::permissions(home.path() / "old" / "pallistrom", fs::perms::owner_all);
    AutostartHome::put(home.file(),
                       "[Desktop Entry]\nType=Application\nExec=" +
                           (home.path() / "old" / "pallistrom").string());
    EXPECT_EQ(file.status(), SMAppServiceStatusNotFound);
    enable();
    EXPECT_EQ(file.status(), SMAppServiceStatusEnabled);
}

// --- Asking often.

TEST_F(AutostartFileTest, showsEachChangeHoweverFastChangesFollowOneAnother) {
    const auto on = home.entry("Hidden=no!\n");
    const auto off = home.entry("Hidden=yes\n");
    ASSERT_EQ(on.size(), off.size());
    for (int i = 0; i < 200; ++i) {
        AutostartHome::put(home.file(), i % 2 == 0 ? on : off);
        ASSERT_EQ(file.status(),
                  i % 2 == 0 ? SMAppServiceStatusEnabled : SMAppServiceStatusNotRegistered)
            << i;
    }
}

TEST_F(AutostartFileTest, isReadOnceWhileNothingChanges) {
    enable();
    const auto hasSettled = [this] {
        FileStamps stamps;
        stamps.add(home.file());
        return stamps.areSettled();
    };
    while (!hasSettled()) {
    }
    const OpenCount opens(home.file());
    int count = 0;
    for (int i = 0; i < 100; ++i) {
        ASSERT_EQ(file.status(), SMAppServiceStatusEnabled);
        count += opens.take();
    }
    EXPECT_LE(count, 1);
    AutostartHome::put(home.file(), home.entry("Hidden=true\n"));
    EXPECT_EQ(opens.take(), 1); // by the test itself
    EXPECT_EQ(file.status(), SMAppServiceStatusNotRegistered);
    EXPECT_EQ(opens.take(), 1);
}

} // namespace

} // namespace pallistrom
