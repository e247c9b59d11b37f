// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/ThisProgram.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace pallistrom {

namespace {

TEST(ThisProgram, isThisFile) {
    EXPECT_EQ(ThisProgram::file().filename(), "login_item_tests");
    EXPECT_TRUE(ThisProgram::file().is_absolute());
}

TEST(ThisProgram, isStartedByTheAppImageThatItLiesIn) {
    EXPECT_EQ(
        ThisProgram::pathToStart("/tmp/.mount_x/usr/bin/p", "/home/u/P.AppImage", "/tmp/.mount_x"),
        "/home/u/P.AppImage");
    EXPECT_EQ(
        ThisProgram::pathToStart("/tmp/.mount_x/usr/bin/p", "/home/u/P.AppImage", "/tmp/.mount_x/"),
        "/home/u/P.AppImage");
}

TEST(ThisProgram, isNotStartedByTheAppImageOfAnotherProgram) {
    EXPECT_EQ(ThisProgram::pathToStart("/usr/bin/p", "/home/u/Terminal.AppImage", "/tmp/.mount_x"),
              "/usr/bin/p");
    EXPECT_EQ(ThisProgram::pathToStart("/tmp/.mount_xy/p", "/home/u/P.AppImage", "/tmp/.mount_x"),
              "/tmp/.mount_xy/p");
    EXPECT_EQ(ThisProgram::pathToStart("/usr/bin/p", "", ""), "/usr/bin/p");
    EXPECT_EQ(ThisProgram::pathToStart("/usr/bin/p", "P.AppImage", "/"), "/usr/bin/p");
}

} // namespace

} // namespace pallistrom
