// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keyboardservice/ThisSession.h"

#include "Environment.h"
#include "InChildProcess.h"
#include "platform/linux/keyboardservice/KeyboardInterface.h"

#include <gtest/gtest.h>
#include <sys/mount.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace pallistrom {

namespace {

// Tells where the login manager keeps what programs may know. Returns whether that can be done.
[[nodiscard]] bool makeLoginManager() {
    if (!InChildProcess::takeOwnMounts() || mount("none", "/run", "tmpfs", 0, "size=64k") != 0) {
        return false;
    }
    std::filesystem::create_directories("/run/systemd/sessions");
    std::ofstream("/run/systemd/sessions/c7") << "UID=1000\nACTIVE=1\nCLASS=user\n";
    std::ofstream("/run/systemd/sessions/4") << "UID=1000\nACTIVE=1\nCLASS=manager\n";
    return true;
}

TEST(ThisSession, isTheOneOfTheEnvironmentIfAPersonWorksInIt) {
    InChildProcess::run([] {
        if (!makeLoginManager()) {
            GTEST_SKIP() << "no mounts of our own to put a login manager's files on";
        }
        Environment::set("XDG_SESSION_ID", "c7");
        EXPECT_EQ(ThisSession::name(), "c7");
        Environment::set("XDG_SESSION_ID", "4");
        EXPECT_EQ(ThisSession::name(), "") << "the user's service manager, which is everywhere";
        Environment::set("XDG_SESSION_ID", "3");
        EXPECT_EQ(ThisSession::name(), "") << "has ended";
    });
}

TEST(ThisSession, hasNoNameWhereNobodyHasNamedIt) {
    InChildProcess::run([] {
        Environment::unset("XDG_SESSION_ID");
        EXPECT_EQ(ThisSession::name(), "");
        for (const auto* const nonsense :
             {"", "../../etc/passwd", "c 7", "no session of this name"}) {
            Environment::set("XDG_SESSION_ID", nonsense);
            EXPECT_EQ(ThisSession::name(), "");
        }
    });
}

TEST(SessionNames, areShortAndOfLettersAndDigits) {
    using KeyboardInterface::isSessionName;
    EXPECT_TRUE(isSessionName("1"));
    EXPECT_TRUE(isSessionName("c7"));
    EXPECT_TRUE(isSessionName("_31"));
    EXPECT_TRUE(isSessionName(std::string(64, 'x')));
    EXPECT_FALSE(isSessionName(std::string(65, 'x')));
    for (const auto* const nonsense : {"", " ", "1 ", "../1", "a-b", "\xc3\xa4", "1\n"}) {
        EXPECT_FALSE(isSessionName(nonsense)) << nonsense;
    }
}

} // namespace

} // namespace pallistrom
