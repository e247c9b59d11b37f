// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/PackageCommand.h"

#include <gtest/gtest.h>

namespace pallistrom {

namespace {

std::string commandFor(std::string_view osRelease) {
    return PackageCommand::forSystem(OsRelease::parse(osRelease),
                                     PackageCommand::SystemFiles::Single);
}

TEST(PackageCommand, isThatOfTheDistribution) {
    EXPECT_EQ(commandFor("ID=debian\n"),
              "sudo apt update && sudo apt install --only-upgrade pallistrom");
    EXPECT_EQ(commandFor("ID=fedora\n"), "sudo dnf upgrade --refresh pallistrom");
    EXPECT_EQ(commandFor("ID=\"opensuse-tumbleweed\"\nID_LIKE=\"opensuse suse\"\n"),
              "sudo zypper refresh && sudo zypper update pallistrom");
    EXPECT_EQ(commandFor("ID=alpine\n"), "sudo apk add --upgrade pallistrom");
}

TEST(PackageCommand, isThatOfWhatTheDistributionWasMadeFrom) {
    EXPECT_EQ(commandFor("ID_LIKE=\"ubuntu debian\"\nID=linuxmint\n"), commandFor("ID=ubuntu\n"));
    EXPECT_EQ(commandFor("ID=rocky\nID_LIKE='rhel centos fedora'\n"), commandFor("ID=fedora\n"));
}

TEST(PackageCommand, updatesAllOfArch) {
    EXPECT_EQ(commandFor("ID=arch\n"), "sudo pacman -Syu");
}

TEST(PackageCommand, isNoneWhereNoneIsKnown) {
    EXPECT_EQ(commandFor("ID=nixos\n"), "");
    EXPECT_EQ(commandFor(""), "");
    EXPECT_EQ(PackageCommand::forSystem(OsRelease::parse("ID=fedora\n"),
                                        PackageCommand::SystemFiles::Image),
              "");
}

} // namespace

} // namespace pallistrom
