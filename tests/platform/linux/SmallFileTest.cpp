// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/SmallFile.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;

class SmallFileTest : public testing::Test {
public:
protected:
    TemporaryFolder temporary;
    const fs::path& folder = temporary.path();
};

TEST_F(SmallFileTest, isReadWhole) {
    const std::string text = std::string(10000, 'x') + std::string("\0\n", 2);
    std::ofstream(folder / "file", std::ios::binary) << text;
    const auto file = SmallFile::read(folder / "file", text.size());
    EXPECT_EQ(file.state, SmallFile::State::Read);
    EXPECT_EQ(file.text, text);
}

TEST_F(SmallFileTest, isNotReadIfItIsLong) {
    std::ofstream(folder / "file") << "12345";
    EXPECT_EQ(SmallFile::read(folder / "file", 5).state, SmallFile::State::Read);
    const auto file = SmallFile::read(folder / "file", 4);
    EXPECT_EQ(file.state, SmallFile::State::TooLong);
    EXPECT_EQ(file.text, "");
}

TEST_F(SmallFileTest, mayBeMissing) {
    std::ofstream(folder / "file") << "x";
    EXPECT_EQ(SmallFile::read(folder / "none", 9).state, SmallFile::State::Missing);
    EXPECT_EQ(SmallFile::read(folder / "file" / "none", 9).state, SmallFile::State::Missing);
    fs::create_symlink("nowhere", folder / "link");
    EXPECT_EQ(SmallFile::read(folder / "link", 9).state, SmallFile::State::Missing);
}

TEST_F(SmallFileTest, isNeitherAPipeNorAFolderNorADevice) {
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), S_IRWXU), 0);
    EXPECT_EQ(SmallFile::read(folder / "pipe", 9).state, SmallFile::State::NoFile);
    EXPECT_EQ(SmallFile::read(folder, 9).state, SmallFile::State::NoFile);
    EXPECT_EQ(SmallFile::read("/dev/zero", 9).state, SmallFile::State::NoFile);
}

} // namespace

} // namespace pallistrom
