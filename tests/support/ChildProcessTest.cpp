// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ChildProcess.h"

#include "InChildProcess.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <optional>
#include <string>
#include <utility>

namespace pallistrom {

namespace {

int waitForever() {
    while (true) {
        ::pause();
    }
}

TEST(ChildProcess, endsWithTheStatusOfItsBody) {
    ChildProcess child([] { return 3; });
    EXPECT_EQ(child.wait(), 3);
    EXPECT_FALSE(child.isRunning());
}

TEST(ChildProcess, saysWhichSignalEndedIt) {
    ChildProcess child(waitForever);
    EXPECT_TRUE(child.isRunning());
    child.signal(SIGTERM);
    EXPECT_EQ(child.wait(), 128 + SIGTERM);
}

TEST(ChildProcess, hasTheIdByWhichItKnowsItself) {
    ChildProcess child(Command{.arguments = {"/bin/sh", "-c", "echo $$"}, .environment = {}});
    EXPECT_EQ(child.readLine(), std::to_string(child.id()));
}

TEST(ChildProcess, isStillRunningAtADeadlineThatHasPassed) {
    ChildProcess child(waitForever);
    EXPECT_EQ(child.wait(Deadline(std::chrono::milliseconds(0))), std::nullopt);
}

TEST(ChildProcess, moves) {
    ChildProcess one([] { return 1; });
    ChildProcess other(std::move(one));
    EXPECT_EQ(other.wait(), 1);
    ChildProcess third([] { return 3; });
    other = std::move(third);
    EXPECT_EQ(other.wait(), 3);
}

TEST(ChildProcess, doesNotOutliveItsOwner) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    const FileDescriptor output(ends[0]);
    std::optional<FileDescriptor> input(ends[1]);
    std::optional<ChildProcess> child(std::in_place, waitForever);
    input.reset();

    pollfd hungUp{.fd = output.get(), .events = POLLIN, .revents = 0};
    EXPECT_EQ(::poll(&hungUp, 1, 0), 0) << "nobody has it open";
    child.reset();
    EXPECT_EQ(::poll(&hungUp, 1, 0), 1);
    EXPECT_EQ(hungUp.revents, POLLHUP);
}

TEST(ChildProcess, hearsAndAnswersIfItIsAProgram) {
    ChildProcess child(Command{.arguments = {"/bin/cat"}, .environment = {}});
    child.writeLine("one");
    child.writeLine("two");
    EXPECT_EQ(child.readLine(), "one");
    EXPECT_EQ(child.readLine(), "two");
}

TEST(ChildProcess, saysSoIfThereIsNoSuchProgram) {
    EXPECT_EQ(ChildProcess(Command{.arguments = {"/no/such/program"}, .environment = {}}).wait(),
              127);
}

TEST(InChildProcess, failsATestWhoseChildProcessDies) {
    EXPECT_NONFATAL_FAILURE(InChildProcess::run([] { ::_exit(1); }), "how the child process ended");
    EXPECT_NONFATAL_FAILURE(InChildProcess::run([] { std::raise(SIGKILL); }), "137");
}

} // namespace

} // namespace pallistrom
