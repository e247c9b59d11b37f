// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/PackedFiles.h"

#include "InChildProcess.h"
#include "ProgramTree.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;

class PackedFilesTest : public testing::Test {
protected:
    PackedFilesTest() { ProgramTree::write(ProgramTree::ofVersion("1.0"), top); }

    [[nodiscard]] bool areAll() const { return PackedFiles::areAllIn(top); }

    void put(const std::string& place) const {
        fs::create_directories((top / place).parent_path());
        std::ofstream(top / place) << "theirs";
    }

    TemporaryFolder folder;
    fs::path top = folder.path() / "pallistrom";
};

TEST_F(PackedFilesTest, areAllWhereTheArchiveWasUnpackedIntoAFolderOfItsOwn) {
    EXPECT_TRUE(areAll());
    fs::remove(top / "share" / "doc" / "1.0");
    EXPECT_TRUE(areAll()) << "the person has no use for it";
    fs::create_directories(top / "share" / "empty");
    EXPECT_TRUE(areAll());
}

TEST_F(PackedFilesTest, areNotAllAmongTheFilesOfOthers) {
    for (const char* const place : {"share/keyrings/login.keyring",
                                    "bin/other",
                                    "notes.txt",
                                    ".hidden",
                                    "share/pallistrom/relocatable2",
                                    "share/doc/1.0 "}) {
        put(place);
        EXPECT_FALSE(areAll()) << place;
        fs::remove(top / place);
    }
    fs::create_symlink("/", top / "link");
    EXPECT_FALSE(areAll());
    fs::remove(top / "link");
    EXPECT_TRUE(areAll());
}

TEST_F(PackedFilesTest, areNotAllWhereNobodyCanTell) {
    const fs::path list = PackedFiles::listIn(top);
    fs::resize_file(list, 0);
    EXPECT_FALSE(areAll());
    fs::remove(list);
    EXPECT_FALSE(areAll());
    EXPECT_FALSE(PackedFiles::areAllIn(folder.path() / "none"));
}

TEST_F(PackedFilesTest, areNotAllWhereNotEverythingCanBeLookedAt) {
    InChildProcess::giveToNobody(folder.path());
    fs::create_directories(top / "locked");
    fs::permissions(top / "locked", fs::perms::none);
    InChildProcess::runAsNobody([this] { EXPECT_FALSE(areAll()); });
}

} // namespace

} // namespace pallistrom
