// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/ArchiveFolder.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <optional>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;

TEST(ArchiveFolder, isTheUsersAlone) {
    const TemporaryFolder home;
    const fs::path path = home.path() / "cache" / "update";
    const ArchiveFolder folder(path);
    ASSERT_TRUE(folder.isThere());
    EXPECT_EQ(folder.archive().parent_path(), path);
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_all);
}

TEST(ArchiveFolder, isGoneInTheEnd) {
    const TemporaryFolder home;
    std::optional<ArchiveFolder> folder(home.path() / "update");
    std::ofstream(folder->archive()) << "archive";
    ASSERT_TRUE(fs::exists(folder->archive()));
    folder.reset();
    EXPECT_FALSE(fs::exists(home.path() / "update"));
}

TEST(ArchiveFolder, removesWhatWasLeftThere) {
    const TemporaryFolder home;
    const fs::path path = home.path() / "update";
    fs::create_directories(path / "old");
    std::ofstream(path / "old" / "archive") << "old";
    const ArchiveFolder folder(path);
    ASSERT_TRUE(folder.isThere());
    EXPECT_TRUE(fs::is_empty(path));
}

TEST(ArchiveFolder, followsNoLink) {
    const TemporaryFolder home;
    const fs::path other = home.path() / "other";
    fs::create_directories(other);
    std::ofstream(other / "file") << "precious";
    fs::create_symlink(other, home.path() / "update");
    {
        const ArchiveFolder folder(home.path() / "update");
        ASSERT_TRUE(folder.isThere());
        EXPECT_FALSE(fs::is_symlink(home.path() / "update"));
    }
    EXPECT_TRUE(fs::exists(other / "file"));
}

TEST(ArchiveFolder, saysIfItCannotBe) {
    const TemporaryFolder home;
    std::ofstream(home.path() / "cache") << "in the way";
    EXPECT_FALSE(ArchiveFolder(home.path() / "cache" / "update").isThere());
}

} // namespace

} // namespace pallistrom
