// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/FileStamps.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;

class FileStampsTest : public testing::Test {
public:
    FileStampsTest() { stamps.add(folder / "a"); }

protected:
    void write(const std::string& name, const std::string& text) const {
        std::ofstream(folder / name) << text;
    }

    // Notes the file anew, and waits until each change of it shows.
    void settle() {
        do {
            stamps.clear();
            stamps.add(folder / "a");
        } while (!stamps.areSettled());
    }

    TemporaryFolder temporary;
    const fs::path& folder = temporary.path();
    FileStamps stamps;
};

TEST_F(FileStampsTest, noticeAFileThatComesOrGoes) {
    EXPECT_TRUE(stamps.areUnchanged());
    write("a", "1");
    EXPECT_FALSE(stamps.areUnchanged());
    settle();
    fs::remove(folder / "a");
    EXPECT_FALSE(stamps.areUnchanged());
}

TEST_F(FileStampsTest, noticeAChangeThatKeepsTheSize) {
    write("a", "1");
    settle();
    EXPECT_TRUE(stamps.areUnchanged());
    write("a", "2");
    EXPECT_FALSE(stamps.areUnchanged());
}

TEST_F(FileStampsTest, noticeAFileThatTakesAnothersPlaceAndTime) {
    write("a", "1");
    write("b", "2");
    fs::last_write_time(folder / "b", fs::last_write_time(folder / "a"));
    settle();
    fs::rename(folder / "b", folder / "a");
    EXPECT_FALSE(stamps.areUnchanged());
}

TEST_F(FileStampsTest, noticeOtherRights) {
    write("a", "1");
    settle();
    fs::permissions(folder / "a", fs::perms::none);
    EXPECT_FALSE(stamps.areUnchanged());
}

TEST_F(FileStampsTest, lookAtEachFile) {
    write("a", "1");
    settle();
    stamps.add(folder / "b");
    EXPECT_TRUE(stamps.areUnchanged());
    write("b", "2");
    EXPECT_FALSE(stamps.areUnchanged());
}

} // namespace

} // namespace pallistrom
