// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/MainQueue.h"

#include "EventLoop.h"
#include "platform/RunLoop.h"

#include <gtest/gtest.h>

#include <string>

namespace pallistrom {

namespace {

class MainQueueTest : public testing::Test {
protected:
    EventLoop loop;
    MainQueue queue;
    std::string ran;
};

TEST_F(MainQueueTest, runsNothingBeforeTheLoopTurns) {
    queue.add([this] { ran += 'a'; });
    EXPECT_EQ(ran, "");
    EXPECT_TRUE(loop.runUntil([this] { return ran == "a"; }));
}

TEST_F(MainQueueTest, runsBlocksInTheOrderInWhichTheyCame) {
    for (const char name : {'a', 'b', 'c'}) {
        queue.add([this, name] { ran += name; });
    }
    EXPECT_TRUE(loop.runUntil([this] { return ran.size() == 3; }));
    EXPECT_EQ(ran, "abc");
}

TEST_F(MainQueueTest, leavesWhatABlockAddsForTheTurnAfter) {
    queue.add([this] {
        queue.add([this] { ran += 'c'; });
        ran += 'a';
    });
    queue.add([this] { ran += 'b'; });
    EXPECT_TRUE(loop.runUntil([this] { return ran.size() == 3; }));
    EXPECT_EQ(ran, "abc");
}

TEST_F(MainQueueTest, isWhatTheSeamPutsBlocksOn) {
    dispatchAsyncOnMainQueue([this] { ran += 'a'; });
    EXPECT_EQ(ran, "");
    EXPECT_TRUE(loop.runUntil([this] { return ran == "a"; }));
}

} // namespace

} // namespace pallistrom
