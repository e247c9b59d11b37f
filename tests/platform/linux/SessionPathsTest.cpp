// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/SessionPaths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

namespace pallistrom {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SessionPathsTest : public testing::Test {
protected:
    SessionPathsTest() {
        for (const char* const name : {"HOME",
                                       "XDG_CONFIG_HOME",
                                       "XDG_CONFIG_DIRS",
                                       "XDG_DATA_HOME",
                                       "XDG_DATA_DIRS",
                                       "PALLISTROM_TEST"}) {
            const char* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe)
            m_before.emplace(name, value != nullptr ? std::optional(value) : std::nullopt);
            unsetenv(name); // NOLINT(concurrency-mt-unsafe)
        }
        set("HOME", "/home/u");
    }

    SessionPathsTest(const SessionPathsTest&) = delete;
    SessionPathsTest& operator=(const SessionPathsTest&) = delete;

    ~SessionPathsTest() override {
        for (const auto& [name, value] : m_before) {
            if (value) {
                set(name, *value);
            } else {
                unsetenv(name.c_str()); // NOLINT(concurrency-mt-unsafe)
            }
        }
    }

    static void set(const std::string& name, const std::string& value) {
        setenv(name.c_str(), value.c_str(), 1); // NOLINT(concurrency-mt-unsafe)
    }

private:
    std::map<std::string, std::optional<std::string>> m_before;
};

TEST_F(SessionPathsTest, areTheUsualOnesWhereTheEnvironmentIsSilent) {
    EXPECT_EQ(SessionPaths::configHome(), "/home/u/.config");
    EXPECT_THAT(SessionPaths::configFolders(), ElementsAre("/etc/xdg"));
    EXPECT_THAT(SessionPaths::dataFolders(),
                ElementsAre("/home/u/.local/share", "/usr/local/share", "/usr/share"));
}

TEST_F(SessionPathsTest, followTheEnvironment) {
    set("XDG_CONFIG_HOME", "/c");
    set("XDG_CONFIG_DIRS", "/d:/e");
    set("XDG_DATA_HOME", "/f");
    set("XDG_DATA_DIRS", "/g");
    EXPECT_EQ(SessionPaths::configHome(), "/c");
    EXPECT_THAT(SessionPaths::configFolders(), ElementsAre("/d", "/e"));
    EXPECT_THAT(SessionPaths::dataFolders(), ElementsAre("/f", "/g"));
}

TEST_F(SessionPathsTest, areNeverRelative) {
    set("XDG_CONFIG_HOME", "c");
    set("XDG_CONFIG_DIRS", "d::/e:./f");
    EXPECT_EQ(SessionPaths::configHome(), "/home/u/.config");
    EXPECT_THAT(SessionPaths::configFolders(), ElementsAre("/e"));
    EXPECT_THAT(SessionPaths::absolutePathsIn(""), IsEmpty());
    EXPECT_THAT(SessionPaths::absolutePathsIn(":"), IsEmpty());
}

TEST_F(SessionPathsTest, takeAnEmptyVariableForAMissingOne) {
    EXPECT_EQ(SessionPaths::variable("PALLISTROM_TEST", "x"), "x");
    set("PALLISTROM_TEST", "");
    EXPECT_EQ(SessionPaths::variable("PALLISTROM_TEST", "x"), "x");
    set("PALLISTROM_TEST", "y");
    EXPECT_EQ(SessionPaths::variable("PALLISTROM_TEST", "x"), "y");
}

} // namespace

} // namespace pallistrom
