// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/DesktopEntries.h"

#include "TemporaryFolder.h"
#include "platform/linux/applications/DesktopEntryText.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;

TEST(DesktopEntryText, saysWhetherItIsATerminal) {
    const auto isTerminal = [](std::string_view text) {
        return DesktopEntryText::parse(text).isTerminal;
    };
    EXPECT_TRUE(isTerminal("[Desktop Entry]\nCategories=System;TerminalEmulator;\n"));
    EXPECT_TRUE(isTerminal("[Desktop Entry]\r\nCategories = TerminalEmulator"));
    EXPECT_FALSE(isTerminal("[Desktop Entry]\nCategories=System;TerminalEmulators;\n"));
    EXPECT_FALSE(isTerminal("[Desktop Entry]\nTerminal=true\nCategories=Utility;\n"));
    EXPECT_FALSE(isTerminal("Categories=TerminalEmulator;\n"));
    EXPECT_FALSE(isTerminal("[Desktop Action New]\nCategories=TerminalEmulator;\n"));
    EXPECT_FALSE(isTerminal(""));
    EXPECT_FALSE(isTerminal(std::string_view("\0\0=;[", 5)));
}

TEST(DesktopEntryText, saysTheClassOfTheWindows) {
    EXPECT_EQ(DesktopEntryText::parse("[Desktop Entry]\nStartupWMClass=Foo Bar\n").startupWmClass,
              "Foo Bar");
    EXPECT_EQ(DesktopEntryText::parse("[Desktop Entry]\nName=x\n").startupWmClass, "");
}

class DesktopEntriesTest : public testing::Test {
public:
    DesktopEntriesTest() {
        fs::create_directories(folder / "user");
        fs::create_directories(folder / "system");
    }

protected:
    void write(const fs::path& name, const std::string& rest) const {
        std::ofstream(folder / name) << "[Desktop Entry]\nType=Application\n" << rest;
    }

    [[nodiscard]] bool isTerminal(std::string_view windowClass) const {
        return DesktopEntries({folder / "user", folder / "missing", folder / "system"})
            .isTerminal(windowClass);
    }

    TemporaryFolder temporary;
    const fs::path& folder = temporary.path();
};

TEST_F(DesktopEntriesTest, findATerminalByTheNameOfItsEntry) {
    write("system/org.example.Term.desktop", "Categories=TerminalEmulator;\n");
    write("system/lower.desktop", "Categories=TerminalEmulator;\n");
    write("system/editor.desktop", "Categories=TextEditor;\n");
    EXPECT_TRUE(isTerminal("org.example.Term"));
    EXPECT_TRUE(isTerminal("Lower"));
    EXPECT_FALSE(isTerminal("editor"));
    EXPECT_FALSE(isTerminal("nobody"));
    EXPECT_FALSE(isTerminal(""));
}

TEST_F(DesktopEntriesTest, findATerminalByTheClassOfItsWindows) {
    write("system/some-terminal.desktop", "StartupWMClass=Foo\nCategories=TerminalEmulator;\n");
    EXPECT_TRUE(isTerminal("Foo"));
    EXPECT_TRUE(isTerminal("foo"));
    EXPECT_TRUE(isTerminal("some-terminal"));
    EXPECT_FALSE(isTerminal("fo"));
}

TEST_F(DesktopEntriesTest, letTheUsersEntryCountBeforeTheSystems) {
    write("system/thing.desktop", "Categories=TerminalEmulator;\n");
    write("user/thing.desktop", "Categories=Utility;\n");
    EXPECT_FALSE(isTerminal("thing"));
}

TEST_F(DesktopEntriesTest, treatAClassAsNoPath) {
    write("elsewhere.desktop", "Categories=TerminalEmulator;\n");
    EXPECT_FALSE(isTerminal("../elsewhere"));
    EXPECT_FALSE(isTerminal((folder / "elsewhere").string()));
}

TEST_F(DesktopEntriesTest, areNotHeldUpByWhatIsNoFile) {
    ASSERT_EQ(mkfifo((folder / "user/pipe.desktop").c_str(), 0600), 0);
    fs::create_directory(folder / "user/folder.desktop");
    fs::create_symlink("nowhere", folder / "user/dangling.desktop");
    std::ofstream(folder / "user/large.desktop")
        << "[Desktop Entry]\nCategories=TerminalEmulator;\n"
        << std::string(300000, '#');
    for (const char* const name : {"pipe", "folder", "dangling", "large", "unknown"}) {
        EXPECT_FALSE(isTerminal(name)) << name;
    }
}

} // namespace

} // namespace pallistrom
