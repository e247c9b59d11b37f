// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/FolderExchange.h"

#include "TemporaryFolder.h"
#include "platform/linux/update/install/UpdateFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <fstream>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class FolderExchangeTest : public testing::Test {
protected:
    FolderExchangeTest() {
        make(one);
        make(other);
    }

    static void make(const fs::path& place) {
        fs::create_directories(place);
        std::ofstream(place / place.filename()) << "";
    }

    TemporaryFolder folder;
    fs::path one = folder.path() / "one";
    fs::path other = folder.path() / "other";
    fs::path aside = folder.path() / "aside";
};

TEST_F(FolderExchangeTest, exchangesEitherWay) {
    EXPECT_EQ(FolderExchange::exchange(one, other, aside), 0);
    EXPECT_TRUE(fs::exists(one / "other") && fs::exists(other / "one") && !fs::exists(aside));
    EXPECT_EQ(FolderExchange::exchangeBySteps(one, other, aside), 0);
    EXPECT_TRUE(fs::exists(one / "one") && fs::exists(other / "other") && !fs::exists(aside));
}

TEST_F(FolderExchangeTest, leavesAllAsItWasIfItCannot) {
    fs::remove_all(other);
    EXPECT_EQ(FolderExchange::exchange(one, other, aside), ENOENT);
    EXPECT_TRUE(fs::exists(one / "one"));
    EXPECT_EQ(FolderExchange::exchangeBySteps(one, other, aside), ENOENT);
    EXPECT_TRUE(fs::exists(one / "one"));
    EXPECT_FALSE(fs::exists(aside));
    EXPECT_EQ(FolderExchange::exchangeBySteps(other, one, aside), ENOENT);
    EXPECT_TRUE(fs::exists(one / "one"));
}

class UpdateFolderTest : public FolderExchangeTest {};

TEST_F(UpdateFolderTest, liesBesideTheProgramAndIsFoundAgain) {
    const auto made = UpdateFolder::make(one);
    ASSERT_TRUE(made);
    EXPECT_EQ(made->path().parent_path(), folder.path());
    EXPECT_TRUE(fs::is_empty(made->content()));
    const auto ofOther = UpdateFolder::make(other);
    EXPECT_THAT(UpdateFolder::leftBeside(one), UnorderedElementsAre(made->path()));
    EXPECT_EQ(one, folder.path() / "one");
}

TEST_F(UpdateFolderTest, leavesFoldersOfOthersAlone) {
    fs::create_directory(folder.path() / ".one.pallistrom-update-");
    fs::create_directory(folder.path() / ".one.pallistrom-update-1234567");
    fs::create_directory(folder.path() / "one.pallistrom-update-123456");
    std::ofstream(folder.path() / ".one.pallistrom-update-123456") << "a file";
    fs::create_directory_symlink(other, folder.path() / ".one.pallistrom-update-abcdef");
    EXPECT_THAT(UpdateFolder::leftBeside(one), IsEmpty());
}

TEST_F(UpdateFolderTest, saysWhyItCannotBeMade) {
    EXPECT_FALSE(UpdateFolder::make(folder.path() / "missing" / "one"));
    EXPECT_EQ(errno, ENOENT);
    EXPECT_FALSE(UpdateFolder::make(folder.path() / "missing"));
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 2) << "nothing is left";
}

TEST_F(UpdateFolderTest, putsBackWhatWasLaidAsideWhenTheProgramIsStartedFromThere) {
    const auto made = UpdateFolder::make(one);
    ASSERT_TRUE(made);
    fs::rename(one, made->aside()); // And then the power went.
    fs::path top = made->aside();
    EXPECT_THAT(UpdateFolder::leftBeside(top), UnorderedElementsAre(made->path()));
    EXPECT_EQ(top, one);
    EXPECT_TRUE(fs::exists(one / "one"));
}

TEST_F(UpdateFolderTest, putsNothingInAPlaceThatIsTaken) {
    const auto made = UpdateFolder::make(one);
    ASSERT_TRUE(made);
    make(made->aside());
    fs::path top = made->aside();
    static_cast<void>(UpdateFolder::leftBeside(top));
    EXPECT_EQ(top, made->aside());
    EXPECT_TRUE(fs::exists(one / "one"));
}

} // namespace

} // namespace pallistrom
