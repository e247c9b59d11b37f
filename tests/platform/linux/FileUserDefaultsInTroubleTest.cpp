// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FileUserDefaultsFixture.h"
#include "InChildProcess.h"
#include "TinyDisk.h"

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <string>

// What FileUserDefaults makes of a file that cannot be written.

namespace pallistrom {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FileUserDefaultsInTrouble : public FileUserDefaultsFixture {
protected:
    // Changes three settings of a file that says a=true, while `makeTrouble` has been called and
    // `endTrouble` has not.
    void changeSettingsInTrouble(const std::function<void()>& makeTrouble,
                                 const std::function<void()>& endTrouble) {
        FileUserDefaults& defaults = start();
        ASSERT_TRUE(defaults.boolForKey("a"));
        const std::string before = folder.text();
        makeTrouble();

        defaults.setBoolForKey(false, "a");
        defaults.setBoolForKey(true, "b");
        loop.drain();
        defaults.setBoolForKey(true, "b");
        EXPECT_FALSE(defaults.boolForKey("a"));
        EXPECT_TRUE(defaults.boolForKey("b"));
        EXPECT_EQ(folder.text(), before);
        EXPECT_THAT(folder.names(), ElementsAre("settings.ini"));
        EXPECT_THAT(RecordedLog::take(),
                    ElementsAre(HasSubstr("Pallistrom: the settings cannot be saved: ")));

        endTrouble();
        defaults.setBoolForKey(true, "c");
        FileUserDefaults& next = start();
        EXPECT_FALSE(next.boolForKey("a"));
        EXPECT_TRUE(next.boolForKey("b"));
        EXPECT_TRUE(next.boolForKey("c"));
        EXPECT_THAT(folder.names(), ElementsAre("settings.ini"));
        EXPECT_THAT(RecordedLog::take(), IsEmpty());
    }

    // The disk is full but for `pagesLeft`.
    void runOnFullDisk(int pagesLeft) {
        folder.make();
        InChildProcess::run([&] {
            TinyDisk disk;
            if (!InChildProcess::takeOwnMounts() || !disk.mountOn(folder.path().parent_path())) {
                GTEST_SKIP() << "no mounts of our own to put a full disk on";
            }
            folder.put("a=true\n");
            changeSettingsInTrouble([&] { disk.fill(pagesLeft); }, [&] { disk.makeRoom(); });
        });
    }
};

TEST_F(FileUserDefaultsInTrouble, keepValuesWhileTheFolderIsReadOnly) {
    folder.put("a=true\n");
    folder.runAsNobody([this] {
        changeSettingsInTrouble(
            [this] {
                fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
            },
            [this] { fs::permissions(folder.path(), fs::perms::owner_all); });
    });
}

TEST_F(FileUserDefaultsInTrouble, keepValuesWhileTheFileIsReadOnly) {
    folder.put("a=true\n");
    folder.runAsNobody([this] {
        changeSettingsInTrouble(
            [this] { fs::permissions(folder.file(), fs::perms::owner_read); },
            [this] {
                fs::permissions(folder.file(), fs::perms::owner_write, fs::perm_options::add);
            });
    });
}

TEST_F(FileUserDefaultsInTrouble, keepValuesWhileTheFolderCannotBeOpened) {
    folder.put("a=true\n");
    fs::permissions(folder.path(), fs::perms::none);
    folder.runAsNobody([this] {
        FileUserDefaults& defaults = start();
        defaults.registerDefaults({{"a", true}});
        EXPECT_TRUE(defaults.boolForKey("a"));
        defaults.setBoolForKey(false, "a");
        defaults.setBoolForKey(true, "b");
        EXPECT_FALSE(defaults.boolForKey("a"));
        EXPECT_TRUE(defaults.boolForKey("b"));
        EXPECT_THAT(RecordedLog::take(), ElementsAre(HasSubstr("cannot be saved")));
    });
}

TEST_F(FileUserDefaultsInTrouble, keepValuesWhileTheFileIsDamagedAndReadOnly) {
    folder.put("a=true\ndamaged");
    fs::permissions(folder.file(), fs::perms::owner_read);
    folder.runAsNobody([this] {
        FileUserDefaults& defaults = start();
        for (int i = 0; i < 3; ++i) {
            defaults.setBoolForKey(true, "b");
            loop.drain();
        }
        EXPECT_TRUE(defaults.boolForKey("a"));
        EXPECT_TRUE(defaults.boolForKey("b"));
        EXPECT_THAT(RecordedLog::take(),
                    ElementsAre(HasSubstr("is damaged"), HasSubstr("cannot be saved")));
    });
}

TEST_F(FileUserDefaultsInTrouble, keepValuesWhileTheDiskIsFull) {
    runOnFullDisk(0);
}

// Enough for the lock, but not for the file.
TEST_F(FileUserDefaultsInTrouble, keepValuesWhileTheDiskIsNearlyFull) {
    runOnFullDisk(1);
}

TEST_F(FileUserDefaultsInTrouble, keepValuesWhileNoFileMayGrow) {
    folder.put("# " + std::string(2000, '-') + "\na=true\n");
    InChildProcess::run([this] {
        std::signal(SIGXFSZ, SIG_IGN);
        const auto limitFiles = [](rlim_t size) {
            rlimit limit{};
            ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
            limit.rlim_cur = size == RLIM_INFINITY ? limit.rlim_max : size;
            ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
        };
        changeSettingsInTrouble([&] { limitFiles(1000); }, [&] { limitFiles(RLIM_INFINITY); });
    });
}

TEST_F(FileUserDefaultsInTrouble, keepUnsavedValuesWhenTheFileChanges) {
    folder.put("a=true\n");
    fs::permissions(folder.file(), fs::perms::owner_read);
    folder.runAsNobody([this] {
        start().setBoolForKey(false, "a");
        folder.replace("a=true\nb=true\n");
        EXPECT_TRUE(comesToSee(true, "b"));
        EXPECT_TRUE(comesToSee(false, "a"));
    });
}

TEST_F(FileUserDefaultsInTrouble, sayAgainThatNothingCanBeSavedAfterSomethingWas) {
    folder.put("a=true\n");
    folder.runAsNobody([this] {
        FileUserDefaults& defaults = start();
        for (int i = 0; i < 2; ++i) {
            fs::permissions(folder.file(), fs::perms::owner_read);
            defaults.setBoolForKey(false, "a");
            EXPECT_THAT(RecordedLog::take(), ElementsAre(HasSubstr("cannot be saved")));
            fs::permissions(folder.file(), fs::perms::owner_all);
            defaults.setBoolForKey(true, "a");
            EXPECT_THAT(RecordedLog::take(), IsEmpty());
        }
    });
}

} // namespace

} // namespace pallistrom
