// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ChildProcess.h"
#include "Deadline.h"
#include "ProgramTree.h"
#include "TemporaryFolder.h"
#include "platform/linux/update/install/UpdateFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <exception>
#include <filesystem>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;

constexpr int killed = 128 + SIGKILL;

bool canKillAtSystemCalls() {
    try {
        ChildProcess tracer({.arguments = {"strace", "-qq", "-o", "/dev/null", "/bin/true"},
                             .environment = {{"PATH", "/usr/bin:/bin"}}});
        return tracer.wait() == 0;
    } catch (const std::exception&) {
        return false;
    }
}

/// Kills the installer when it makes a system call for the n-th time, for every call that changes
/// something on the disk, or starts somebody who does, and every n.
class ArchiveInstallationKilled : public testing::TestWithParam<const char*> {
protected:
    /// Returns whether it was killed. 0 for `count` kills nobody.
    bool install(int count) {
        const std::string inject =
            std::string("inject=") + GetParam() + ":signal=KILL:when=" + std::to_string(count);
        std::vector<std::string> arguments;
        if (count > 0) {
            arguments = {"strace",
                         "-qq",
                         "-o",
                         "/dev/null",
                         "-e",
                         std::string("trace=") + GetParam(),
                         "-e",
                         inject};
        }
        arguments.insert(arguments.end(), {INSTALL_ARCHIVE, top.string(), archive.string(), "2.0"});
        // No sanitizer can look for leaks in a process that is traced.
        ChildProcess installer(
            {.arguments = arguments,
             .environment = {{"PATH", "/usr/bin:/bin"}, {"ASAN_OPTIONS", "detect_leaks=0"}}});
        const auto status = installer.wait(Deadline(std::chrono::seconds(60)));
        EXPECT_TRUE(status == 0 || status == killed) << status.value_or(-1);
        return status == killed;
    }

    TemporaryFolder folder;
    fs::path top = folder.path() / "apps" / "pallistrom";
    fs::path archive = folder.path() / "archive";
};

TEST_P(ArchiveInstallationKilled, leavesOneOfTheTwoVersionsWhole) {
    if (!canKillAtSystemCalls()) {
        GTEST_SKIP() << "strace is not installed, or may not trace";
    }
    const auto old = ProgramTree::ofVersion("1.0");
    const auto newer = ProgramTree::ofVersion("2.0");
    ProgramTree::writeFile(archive, ProgramTree::packed(newer).archive(), "gzip");
    int times = 0;
    for (bool wasKilled = true; wasKilled; ++times) {
        fs::remove_all(top.parent_path());
        ProgramTree::write(old, top);
        wasKilled = install(times + 1);
        const auto now = ProgramTree::read(top);
        EXPECT_TRUE(now == newer || (wasKilled && now == old)) << times;
        // The next start finds what is left, all of it and nothing else.
        fs::path found = top;
        EXPECT_TRUE(waitUntil(
            [&] {
                for (const fs::path& left : UpdateFolder::leftBeside(found)) {
                    std::error_code others; // What was removing it may still be at it.
                    fs::remove_all(left, others);
                }
                return std::distance(fs::directory_iterator(top.parent_path()), {}) == 1;
            },
            Deadline(std::chrono::seconds(60))))
            << times;
        ASSERT_LT(times, 1000) << "it does not get on";
    }
    EXPECT_GT(times, 1) << "never killed";
    EXPECT_FALSE(install(0));
    EXPECT_EQ(ProgramTree::read(top), newer) << "installed in the end";
}

// Those that an installation makes: the name of a call differs between processors for some.
INSTANTIATE_TEST_SUITE_P(Each,
                         ArchiveInstallationKilled,
                         testing::Values("/^(mkdir|mkdirat)$",
                                         "/^(chmod|fchmodat)$",
                                         "write",
                                         "close",
                                         "symlinkat",
                                         "/^(clone|clone3|vfork|fork)$",
                                         "renameat2"));

} // namespace

} // namespace pallistrom
