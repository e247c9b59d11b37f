// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/grants/GrantStore.h"

#include "InChildProcess.h"
#include "People.h"
#include "RecordedLog.h"
#include "TemporaryFolder.h"
#include "TinyDisk.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class GrantStores : public testing::Test {
protected:
    GrantStores() { RecordedLog::take(); }

    GrantStore open() const { return GrantStore{GrantFile{folder.path()}}; }

    fs::path file() const { return folder.path() / "grants"; }

    void put(const std::string& text) const { std::ofstream{file(), std::ios::binary} << text; }

    static std::string textOf(const fs::path& path) {
        std::ifstream stream{path, std::ios::binary};
        return {std::istreambuf_iterator<char>{stream}, {}};
    }

    TemporaryFolder folder;
};

} // namespace

TEST_F(GrantStores, areEmptyAtFirst) {
    const GrantStore store = open();
    EXPECT_TRUE(store.isEmpty());
    EXPECT_EQ(store.grantOf(ann), std::nullopt);
    EXPECT_THAT(RecordedLog::take(), IsEmpty());
    EXPECT_FALSE(fs::exists(file()));
}

TEST_F(GrantStores, remember) {
    open().give(ann);
    EXPECT_EQ(open().grantOf(ann), Grant::Given);
    EXPECT_EQ(open().grantOf(bob), std::nullopt);
    EXPECT_EQ(textOf(file()), "pallistrom-grants 1\n1000 given\n");
}

TEST_F(GrantStores, areNobodyElsesToRead) {
    open().give(ann);

    struct stat status {};

    ASSERT_EQ(stat(file().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(GrantStores, forgetWhatIsWithdrawnAndLeaveNoFile) {
    GrantStore store = open();
    store.give(ann);
    store.give(bob);
    store.withdraw(ann);
    store.save();
    EXPECT_EQ(open().grantOf(ann), std::nullopt);
    EXPECT_EQ(open().grantOf(bob), Grant::Given);
    store.withdraw(bob);
    store.save();
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST_F(GrantStores, keepWhatIsSuspended) {
    GrantStore store = open();
    store.give(ann);
    store.suspend(ann);
    store.save();
    EXPECT_EQ(open().grantOf(ann), Grant::Suspended);
    store.resume(ann);
    EXPECT_EQ(open().grantOf(ann), Grant::Given);
}

TEST_F(GrantStores, suspendAndResumeNoGrantIntoBeing) {
    GrantStore store = open();
    store.suspend(ann);
    store.resume(ann);
    store.withdraw(ann);
    EXPECT_FALSE(store.isToBeSaved());
    store.save();
    EXPECT_EQ(store.grantOf(ann), std::nullopt);
    EXPECT_FALSE(fs::exists(file()));
}

TEST_F(GrantStores, putADamagedFileAsideAndGrantNothing) {
    put("pallistrom-grants 1\n1000 given\n1001 gi");
    GrantStore store = open();
    EXPECT_TRUE(store.isEmpty());
    EXPECT_THAT(RecordedLog::take(), ElementsAre(HasSubstr("damaged")));
    EXPECT_EQ(textOf(folder.path() / "grants.damaged"), "pallistrom-grants 1\n1000 given\n1001 gi");
    EXPECT_FALSE(fs::exists(file()));
    store.give(bob);
    EXPECT_EQ(open().grantOf(bob), Grant::Given);
}

TEST_F(GrantStores, takeAHugeFileForADamagedOne) {
    std::string text{"pallistrom-grants 1\n"};
    text.resize(std::size_t{8} * 1024 * 1024, 'x');
    put(text);
    EXPECT_TRUE(open().isEmpty());
    EXPECT_THAT(RecordedLog::take(), ElementsAre(HasSubstr("damaged")));
}

TEST_F(GrantStores, doNotFollowLinks) {
    const fs::path elsewhere = folder.path() / "elsewhere";
    std::ofstream{elsewhere} << "pallistrom-grants 1\n1000 given\n";
    fs::create_symlink(elsewhere, file());
    EXPECT_TRUE(open().isEmpty());
    EXPECT_THAT(RecordedLog::take(), ElementsAre(HasSubstr("cannot be read")));
}

TEST_F(GrantStores, liveWithoutAFolder) {
    GrantStore store{GrantFile{folder.path() / "none"}};
    store.give(ann);
    EXPECT_EQ(store.grantOf(ann), Grant::Given);
    EXPECT_THAT(RecordedLog::take(), ElementsAre(HasSubstr("cannot be written")));
}

TEST_F(GrantStores, holdWhatAFullDiskDoesNotTake) {
    InChildProcess::run([this] {
        TinyDisk disk;
        if (!InChildProcess::takeOwnMounts() || !disk.mountOn(folder.path())) {
            GTEST_SKIP() << "no mounts of our own to put a full disk on";
        }
        open().give(ann);
        disk.fill(0);
        RecordedLog::take();

        GrantStore store = open();
        store.give(bob);
        EXPECT_EQ(store.grantOf(bob), Grant::Given);
        EXPECT_THAT(RecordedLog::take(), ElementsAre(HasSubstr("cannot be written")));
        EXPECT_EQ(textOf(file()), "pallistrom-grants 1\n1000 given\n") << "as it was, and whole";
        EXPECT_FALSE(fs::exists(folder.path() / "grants.new"));

        disk.makeRoom();
        store.suspend(bob);
        store.save();
        EXPECT_EQ(open().grantOf(bob), Grant::Suspended);
    });
}

TEST_F(GrantStores, waitForNoDiskWhenAGrantIsTakenAway) {
    GrantStore store = open();
    store.give(ann);
    store.give(bob);
    store.suspend(ann);
    store.withdraw(bob);
    EXPECT_EQ(store.grantOf(ann), Grant::Suspended);
    EXPECT_EQ(store.grantOf(bob), std::nullopt);
    EXPECT_TRUE(store.isToBeSaved());
    EXPECT_EQ(textOf(file()), "pallistrom-grants 1\n1000 given\n1001 given\n");

    store.give(bob);
    EXPECT_FALSE(store.isToBeSaved()) << "what is given is written at once, with all the rest";
    EXPECT_EQ(textOf(file()), "pallistrom-grants 1\n1000 suspended\n1001 given\n");
}

TEST_F(GrantStores, takeGrantsAwayOnAFullDisk) {
    InChildProcess::run([this] {
        TinyDisk disk;
        if (!InChildProcess::takeOwnMounts() || !disk.mountOn(folder.path())) {
            GTEST_SKIP() << "no mounts of our own to put a full disk on";
        }
        GrantStore store = open();
        store.give(ann);
        store.give(bob);
        disk.fill(0);

        store.suspend(bob);
        store.save();
        EXPECT_EQ(textOf(file()), "pallistrom-grants 1\n1000 given\n1001 suspended\n");
        store.withdraw(bob);
        store.save();
        EXPECT_EQ(textOf(file()), "pallistrom-grants 1\n1000 given\n") << "no end of the old text";
        store.withdraw(ann);
        store.save();
        EXPECT_FALSE(fs::exists(file()));
        EXPECT_THAT(RecordedLog::take(), IsEmpty());
    });
}

TEST_F(GrantStores, loseAllGrantsBeforeOneComesBack) {
    InChildProcess::run([this] {
        GrantStore store = open();
        store.give(ann);
        RecordedLog::take();
        store.suspend(ann);

        // Files do not grow any more.
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit before{};
        ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
        rlimit tight = before;
        tight.rlim_cur = fs::file_size(file());
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &tight), 0);
        store.save();
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);

        EXPECT_TRUE(fs::is_empty(folder.path()));
        EXPECT_EQ(store.grantOf(ann), Grant::Suspended) << "until the service ends";
        EXPECT_THAT(RecordedLog::take(), ElementsAre(HasSubstr("their file was removed")));
    });
}

} // namespace pallistrom
