// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "InChildProcess.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

namespace pallistrom::InChildProcess {

namespace {

constexpr int failed = 1;
constexpr int skipped = 77;

/// What takes longer has come to a stop.
constexpr std::chrono::minutes longest{2};

bool write(const char* path, const std::string& text) {
    std::ofstream file(path);
    file << text << std::flush;
    return file.good();
}

// Within a name space of their own people may mount without being the superuser.
bool becomeSuperuserOfOwnNameSpace() {
    const auto user = std::to_string(getuid());
    const auto group = std::to_string(getgid());
    return unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 &&
           write("/proc/self/uid_map", "0 " + user + " 1") &&
           write("/proc/self/setgroups", "deny") &&
           write("/proc/self/gid_map", "0 " + group + " 1");
}

// Returns whether this process has no more rights than others now.
bool giveUpRights() {
    return geteuid() != 0 ||
           (setgroups(0, nullptr) == 0 && setgid(nobody) == 0 && setuid(nobody) == 0);
}

} // namespace

void run(const std::function<void()>& body) {
    ChildProcess child = start(body);
    wait(child);
}

ChildProcess start(const std::function<void()>& body) {
    return ChildProcess([&body] {
        body();
        if (testing::Test::HasFailure()) {
            return failed;
        }
        return testing::Test::IsSkipped() ? skipped : 0;
    });
}

void wait(ChildProcess& child) {
    const std::optional<int> status = child.wait(Deadline(longest));
    ASSERT_TRUE(status) << "the child process does not end";
    if (*status == skipped) {
        GTEST_SKIP() << "the child process said why";
    }
    EXPECT_EQ(*status, 0) << "how the child process ended";
}

bool takeOwnMounts() {
    return (unshare(CLONE_NEWNS) == 0 || becomeSuperuserOfOwnNameSpace()) &&
           mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

void giveToNobody(const std::filesystem::path& folder) {
    if (geteuid() != 0) {
        return; // It is ours already, and we are nobody.
    }
    ASSERT_EQ(chown(folder.c_str(), nobody, nobody), 0);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        ASSERT_EQ(lchown(entry.path().c_str(), nobody, nobody), 0);
    }
}

void runAsNobody(const std::function<void()>& body) {
    run([&] {
        if (!giveUpRights()) {
            GTEST_SKIP() << "the superuser's rights cannot be given up here";
        }
        body();
    });
}

} // namespace pallistrom::InChildProcess
