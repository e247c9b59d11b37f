// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "AutostartHome.h"
#include "InChildProcess.h"
#include "TinyDisk.h"
#include "platform/linux/loginitem/AutostartFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

// What becomes of an autostart entry that cannot be read or written.

namespace pallistrom {

namespace {

namespace fs = std::filesystem;
using enum SMAppServiceStatus;
using testing::ElementsAre;
using testing::HasSubstr;

class AutostartFileInTrouble : public testing::Test {
protected:
    // Neither does anything, and each says why.
    void expectNothingCanBeDone(const std::string& why) const {
        AutostartFile file(home.places());
        EXPECT_NE(file.status(), SMAppServiceStatusEnabled);
        const auto error = file.enable();
        ASSERT_TRUE(error);
        EXPECT_THAT(error->localizedDescription, HasSubstr(why));
        EXPECT_EQ(error->localizedDescription.find('\n'), std::string::npos);
        EXPECT_NE(file.status(), SMAppServiceStatusEnabled);
        EXPECT_TRUE(file.disable());
    }

    void runWithoutRights(const std::function<void()>& body) const {
        home.giveAway();
        InChildProcess::runAsNobody(body);
    }

    AutostartHome home;
};

TEST_F(AutostartFileInTrouble, isLeftAloneIfItIsAPipe) {
    fs::create_directories(home.folder());
    ASSERT_EQ(mkfifo(home.file().c_str(), S_IRWXU), 0);
    expectNothingCanBeDone("no file");
    EXPECT_TRUE(fs::is_fifo(home.file()));
}

TEST_F(AutostartFileInTrouble, isLeftAloneIfItIsAFolder) {
    AutostartHome::put(home.file() / "mine", "x");
    expectNothingCanBeDone("no file");
    EXPECT_EQ(AutostartHome::text(home.file() / "mine"), "x");
}

// A way to switch entries off for good.
TEST_F(AutostartFileInTrouble, isLeftAloneIfItIsALinkToNowhere) {
    AutostartHome::put(home.systemFile(), home.entry());
    fs::create_directories(home.folder());
    fs::create_symlink("/dev/null", home.file());
    expectNothingCanBeDone("no file");
    EXPECT_TRUE(fs::is_symlink(home.file()));
}

TEST_F(AutostartFileInTrouble, isLeftAloneIfItIsASocket) {
    fs::create_directories(home.folder());
    ASSERT_EQ(mknod(home.file().c_str(), S_IFSOCK | S_IRWXU, 0), 0);
    expectNothingCanBeDone("no file");
}

TEST_F(AutostartFileInTrouble, isLeftAloneIfItIsHuge) {
    AutostartHome::put(home.file(), home.entry());
    fs::resize_file(home.file(), 1ULL << 40U);
    expectNothingCanBeDone("too long");
    EXPECT_EQ(fs::file_size(home.file()), 1ULL << 40U);
}

TEST_F(AutostartFileInTrouble, isKeptUnderAnotherNameIfItIsDamaged) {
    AutostartFile file(home.places());
    for (const std::string& text : {"rubbish\n" + home.entry(), home.entry() + "more rubbish\n"}) {
        AutostartHome::put(home.file(), text);
        EXPECT_EQ(file.status(), SMAppServiceStatusNotFound);
        EXPECT_FALSE(file.enable());
        EXPECT_EQ(file.status(), SMAppServiceStatusEnabled);
    }
    EXPECT_THAT(home.names(),
                ElementsAre("pallistrom.desktop",
                            "pallistrom.desktop.damaged",
                            "pallistrom.desktop.damaged-2"));
    EXPECT_EQ(AutostartHome::text(home.folder() / "pallistrom.desktop.damaged"),
              "rubbish\n" + home.entry());
}

TEST_F(AutostartFileInTrouble, isWrittenAnewIfItIsEmpty) {
    AutostartHome::put(home.file(), "");
    AutostartFile file(home.places());
    EXPECT_EQ(file.status(), SMAppServiceStatusNotFound);
    EXPECT_FALSE(file.enable());
    EXPECT_EQ(file.status(), SMAppServiceStatusEnabled);
    EXPECT_THAT(home.names(), ElementsAre("pallistrom.desktop"));
}

TEST_F(AutostartFileInTrouble, isNotFoundWhereItsFolderIsAFile) {
    AutostartHome::put(home.folder(), "x");
    expectNothingCanBeDone("folder");
    EXPECT_EQ(AutostartFile(home.places()).status(), SMAppServiceStatusNotFound);
    EXPECT_EQ(AutostartHome::text(home.folder()), "x");
}

TEST_F(AutostartFileInTrouble, isNotFoundWhereItsFolderCannotBeMade) {
    fs::permissions(home.config(), fs::perms::owner_read | fs::perms::owner_exec);
    runWithoutRights([this] {
        EXPECT_EQ(AutostartFile(home.places()).status(), SMAppServiceStatusNotFound);
        expectNothingCanBeDone("folder cannot be made");
        fs::permissions(home.config(), fs::perms::owner_all);
        AutostartFile file(home.places());
        EXPECT_EQ(file.status(), SMAppServiceStatusNotRegistered);
        EXPECT_FALSE(file.enable());
    });
}

TEST_F(AutostartFileInTrouble, isNotFoundWhereItsFolderIsReadOnly) {
    fs::create_directories(home.folder());
    fs::permissions(home.folder(), fs::perms::owner_read | fs::perms::owner_exec);
    runWithoutRights([this] {
        EXPECT_EQ(AutostartFile(home.places()).status(), SMAppServiceStatusNotFound);
        expectNothingCanBeDone("cannot be written: ");
    });
}

TEST_F(AutostartFileInTrouble, isNotFoundWhereItsFolderIsClosed) {
    AutostartHome::put(home.file(), home.entry());
    fs::permissions(home.folder(), fs::perms::none);
    runWithoutRights([this] { expectNothingCanBeDone("cannot be read"); });
}

TEST_F(AutostartFileInTrouble, isNotFoundIfItMayNotBeRead) {
    AutostartHome::put(home.file(), home.entry());
    fs::permissions(home.file(), fs::perms::none);
    runWithoutRights([this] { expectNothingCanBeDone("cannot be read"); });
}

TEST_F(AutostartFileInTrouble, cannotBeChangedIfItIsReadOnly) {
    AutostartHome::put(home.file(), home.entry("Hidden=true\n"));
    fs::permissions(home.file(), fs::perms::owner_read);
    runWithoutRights([this] {
        expectNothingCanBeDone("cannot be written: ");
        EXPECT_EQ(AutostartHome::text(home.file()), home.entry("Hidden=true\n"));
    });
}

TEST_F(AutostartFileInTrouble, keepsStartingUsWhereItCannotBeRemoved) {
    ASSERT_FALSE(AutostartFile(home.places()).enable());
    fs::permissions(home.folder(), fs::perms::owner_read | fs::perms::owner_exec);
    runWithoutRights([this] {
        AutostartFile file(home.places());
        const auto error = file.disable();
        ASSERT_TRUE(error);
        EXPECT_THAT(error->localizedDescription, HasSubstr("cannot be removed: "));
        EXPECT_EQ(file.status(), SMAppServiceStatusEnabled);
    });
}

TEST_F(AutostartFileInTrouble, isWholeWhereTheDiskIsReadOnly) {
    AutostartHome::put(home.file(), home.entry("Hidden=true\n"));
    InChildProcess::run([this] {
        const auto folder = home.folder();
        if (!InChildProcess::takeOwnMounts() ||
            mount(folder.c_str(), folder.c_str(), nullptr, MS_BIND, nullptr) != 0 ||
            mount(nullptr, folder.c_str(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) !=
                0) {
            GTEST_SKIP() << "no mounts of our own to make read-only";
        }
        expectNothingCanBeDone("cannot be written: ");
        EXPECT_EQ(AutostartHome::text(home.file()), home.entry("Hidden=true\n"));
    });
}

TEST_F(AutostartFileInTrouble, isWholeWhereTheDiskIsFull) {
    fs::create_directories(home.folder());
    for (const int pagesLeft : {0, 1}) {
        InChildProcess::run([&] {
            TinyDisk disk;
            if (!InChildProcess::takeOwnMounts() || !disk.mountOn(home.folder())) {
                GTEST_SKIP() << "no mounts of our own to put a full disk on";
            }
            const auto before = home.entry("Hidden=true\n# " + std::string(5000, 'x') + "\n");
            AutostartHome::put(home.file(), before);
            disk.fill(pagesLeft);
            expectNothingCanBeDone("cannot be written: ");
            EXPECT_EQ(AutostartHome::text(home.file()), before);
            disk.makeRoom();
            AutostartFile file(home.places());
            EXPECT_FALSE(file.enable());
            EXPECT_THAT(home.names(), ElementsAre("pallistrom.desktop"));
        });
    }
}

TEST_F(AutostartFileInTrouble, isKeptWhereTheDiskIsTooFullForACopyOfTheDamagedOne) {
    fs::create_directories(home.folder());
    InChildProcess::run([&] {
        TinyDisk disk;
        if (!InChildProcess::takeOwnMounts() || !disk.mountOn(home.folder())) {
            GTEST_SKIP() << "no mounts of our own to put a full disk on";
        }
        const auto before = "rubbish " + std::string(5000, 'x');
        AutostartHome::put(home.file(), before);
        disk.fill(0);
        expectNothingCanBeDone("cannot be kept");
        EXPECT_EQ(AutostartHome::text(home.file()), before);
        disk.makeRoom();
        EXPECT_THAT(home.names(), ElementsAre("pallistrom.desktop"));
    });
}

} // namespace

} // namespace pallistrom
