// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/MachPort.h"

#include "EventLoop.h"
#include "FakeTapWay.h"
#include "platform/RunLoop.h"
#include "platform/linux/SettingsChanges.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>

namespace pallistrom {

namespace {

CGEventRef
passOn(CGEventTapProxy /*proxy*/, CGEventType /*type*/, CGEventRef event, void* /*userInfo*/) {
    return event;
}

class MachPortTest : public testing::Test {
protected:
    EventLoop loop;
    FakeTapWay best;
    FakeTapWay second;
    std::array<TapWay*, 2> ways{&best, &second};
    std::array<TappedKey, 1> tappedKeys{{{.keyCode = 13, .required = 0, .forbidden = 0}}};
    std::unique_ptr<CFMachPort> port =
        std::make_unique<CFMachPort>(KeyFilter(passOn, nullptr, tappedKeys), ways);
};

// --- On and off.

TEST_F(MachPortTest, startsNothingByItself) {
    EXPECT_FALSE(port->isEnabled());
    EXPECT_EQ(best.startCount, 0);
}

TEST_F(MachPortTest, takesTheBestWayThatCanRun) {
    port->setEnabled(true);
    EXPECT_TRUE(port->isEnabled());
    EXPECT_TRUE(best.isRunning());
    EXPECT_EQ(second.startCount, 0);
}

TEST_F(MachPortTest, takesTheSecondWayWhileTheBestCannotRun) {
    best.runs = false;
    port->setEnabled(true);
    EXPECT_TRUE(port->isEnabled());
    EXPECT_EQ(best.startCount, 0);
    EXPECT_TRUE(second.isRunning());
}

TEST_F(MachPortTest, takesTheSecondWayIfTheBestDoesNotStart) {
    best.starts = false;
    port->setEnabled(true);
    EXPECT_EQ(best.startCount, 1);
    EXPECT_TRUE(port->isEnabled());
    EXPECT_TRUE(second.isRunning());
}

TEST_F(MachPortTest, staysOffWhileNoWayCanRun) {
    best.runs = false;
    second.starts = false;
    port->setEnabled(true);
    EXPECT_FALSE(port->isEnabled());
    best.runs = true;
    port->setEnabled(true);
    EXPECT_TRUE(port->isEnabled());
}

TEST_F(MachPortTest, givesTheWayItsFilter) {
    port->setEnabled(true);
    ASSERT_NE(best.filter, nullptr);
    EXPECT_EQ(best.filter->tappedKeys().size(), 1U);
    EXPECT_TRUE(best.filter->ask({.keyCode = 13, .flags = 0, .isDown = true}).isUntouched);
}

TEST_F(MachPortTest, leavesTheBestWayAloneWhileItRuns) {
    port->setEnabled(true);
    port->setEnabled(true);
    EXPECT_EQ(best.startCount, 1);
    EXPECT_EQ(best.stopCount, 0);
}

TEST_F(MachPortTest, leavesTheSecondWayAloneWhileTheBestCannotRun) {
    best.runs = false;
    port->setEnabled(true);
    port->setEnabled(true);
    EXPECT_EQ(second.startCount, 1);
    EXPECT_EQ(second.stopCount, 0);
}

TEST_F(MachPortTest, isOffOnceABetterWayCanRunAndTakesItWhenSwitchedOn) {
    best.runs = false;
    port->setEnabled(true);
    best.runs = true;
    EXPECT_FALSE(port->isEnabled());
    EXPECT_TRUE(second.isRunning()) << "until another has it";
    second.onStop = [this] {
        EXPECT_FALSE(best.isRunning()) << "never two at a time";
    };
    port->setEnabled(true);
    EXPECT_TRUE(port->isEnabled());
    EXPECT_TRUE(best.isRunning());
    EXPECT_FALSE(second.isRunning());
}

TEST_F(MachPortTest, doesNotLeaveAWayForABetterOneThatDidNotStart) {
    best.starts = false;
    port->setEnabled(true);
    port->setEnabled(true);
    EXPECT_EQ(best.startCount, 1);
    EXPECT_EQ(second.startCount, 1);
}

TEST_F(MachPortTest, takesNoWayAtAllAgainstAPersonsWord) {
    port->setEnabled(true);
    best.runs = false;
    best.breakDown();
    best.obstacleInTheWay = Obstacle::Panicked;
    port->setEnabled(true);
    EXPECT_FALSE(port->isEnabled());
    EXPECT_EQ(second.startCount, 0);
    best.obstacleInTheWay = Obstacle::NotGranted;
    port->setEnabled(true);
    EXPECT_TRUE(second.isRunning());
}

TEST_F(MachPortTest, isOffOnceAPersonsWordStandsAgainstEveryWay) {
    best.runs = false;
    port->setEnabled(true);
    best.obstacleInTheWay = Obstacle::Panicked;
    EXPECT_FALSE(port->isEnabled());
    port->setEnabled(true);
    EXPECT_FALSE(second.isRunning());
}

TEST_F(MachPortTest, choosesAnewWhenItIsSwitchedOnAgain) {
    best.runs = false;
    port->setEnabled(true);
    port->setEnabled(false);
    EXPECT_FALSE(port->isEnabled());
    EXPECT_FALSE(second.isRunning());
    best.runs = true;
    port->setEnabled(true);
    EXPECT_TRUE(best.isRunning());
    EXPECT_FALSE(second.isRunning());
}

TEST_F(MachPortTest, mayBeSwitchedOffTwice) {
    port->setEnabled(true);
    port->setEnabled(false);
    port->setEnabled(false);
    EXPECT_EQ(best.stopCount, 1);
}

TEST_F(MachPortTest, isOffOnceItsWayBreaksAndFindsAnotherWhenSwitchedOn) {
    port->setEnabled(true);
    best.breakDown();
    best.runs = false;
    EXPECT_FALSE(port->isEnabled());
    port->setEnabled(true);
    EXPECT_TRUE(port->isEnabled());
    EXPECT_TRUE(second.isRunning());
}

TEST_F(MachPortTest, startsTheSameWayAgainIfThatIsStillTheBest) {
    port->setEnabled(true);
    best.breakDown();
    port->setEnabled(true);
    EXPECT_EQ(best.startCount, 2);
    EXPECT_TRUE(port->isEnabled());
}

TEST_F(MachPortTest, stopsItsWayAtItsEnd) {
    port->setEnabled(true);
    port.reset();
    EXPECT_EQ(best.stopCount, 1);
    EXPECT_FALSE(best.isRunning());
}

// As the run loop has it: for good, so that nothing else would stop the way.
TEST_F(MachPortTest, stopsItsWayWhenTheProgramQuits) {
    const CFMachPortRef shared = std::make_shared<CFMachPort>(
        KeyFilter(passOn, nullptr, tappedKeys), std::span<TapWay* const>(ways));
    CFRunLoopAddSource(CFRunLoopGetCurrent(),
                       CFMachPortCreateRunLoopSource(shared, 0),
                       CFRunLoopMode::kCFRunLoopCommonModes);
    shared->setEnabled(true);
    dispatchAsyncOnMainQueue([] { QCoreApplication::quit(); });
    QCoreApplication::exec();
    EXPECT_EQ(best.stopCount, 1);
    EXPECT_FALSE(best.isRunning());
}

// --- Changes of the settings.

TEST_F(MachPortTest, tellsTheRunningWayThatTheFilterMayHaveChanged) {
    port->setEnabled(true);
    SettingsChanges::tell();
    EXPECT_EQ(best.changeCount, 1);
    EXPECT_EQ(second.changeCount, 0);
}

TEST_F(MachPortTest, tellsTheRunningWayAlsoWhileABetterOneCanRun) {
    best.runs = false;
    port->setEnabled(true);
    best.runs = true;
    SettingsChanges::tell();
    EXPECT_EQ(second.changeCount, 1);
}

TEST_F(MachPortTest, tellsNoWayThatDoesNotRun) {
    SettingsChanges::tell();
    port->setEnabled(true);
    best.breakDown();
    SettingsChanges::tell();
    port->setEnabled(false);
    SettingsChanges::tell();
    EXPECT_EQ(best.changeCount, 0);
    EXPECT_EQ(second.changeCount, 0);
}

TEST_F(MachPortTest, tellsNobodyAfterItsEnd) {
    port->setEnabled(true);
    port.reset();
    SettingsChanges::tell();
    EXPECT_EQ(best.changeCount, 0);
}

// --- On the run loop.

TEST_F(MachPortTest, isServedOnlyOnceItIsOnTheRunLoop) {
    port->setEnabled(true);
    best.arrive();
    loop.drain();
    EXPECT_EQ(best.serveCount, 0);
    port->serveOnRunLoop();
    EXPECT_EQ(best.serveCount, 1);
    best.arrive();
    EXPECT_TRUE(loop.runUntil([this] { return best.serveCount == 2; }));
}

TEST_F(MachPortTest, isServedWhenItIsSwitchedOnAfterItWentOnTheRunLoop) {
    port->serveOnRunLoop();
    port->setEnabled(true);
    best.arrive();
    EXPECT_TRUE(loop.runUntil([this] { return best.serveCount == 1; }));
}

TEST_F(MachPortTest, isServedThroughEachWayThatItTakes) {
    port->serveOnRunLoop();
    port->setEnabled(true);
    best.breakDown();
    best.runs = false;
    port->setEnabled(true);
    second.arrive();
    EXPECT_TRUE(loop.runUntil([this] { return second.serveCount == 1; }));
    best.arrive();
    loop.drain();
    EXPECT_EQ(best.serveCount, 0);
}

TEST_F(MachPortTest, takesAWayThatNeedsNobodyToServeIt) {
    best.isServed = false;
    port->serveOnRunLoop();
    port->setEnabled(true);
    EXPECT_TRUE(port->isEnabled());
    best.breakDown();
    best.runs = false;
    port->setEnabled(true);
    second.arrive();
    EXPECT_TRUE(loop.runUntil([this] { return second.serveCount == 1; }));
}

TEST_F(MachPortTest, isNotServedWhileItIsOff) {
    port->serveOnRunLoop();
    port->setEnabled(true);
    port->setEnabled(false);
    best.arrive();
    loop.drain();
    EXPECT_EQ(best.serveCount, 0);
}

TEST_F(MachPortTest, isServedNoLongerOnceItsWayBreaks) {
    port->serveOnRunLoop();
    port->setEnabled(true);
    best.onServe = [this] {
        best.breakDown();
    };
    best.arrive();
    ASSERT_TRUE(loop.runUntil([this] { return best.serveCount == 1; }));
    best.arrive();
    loop.drain();
    EXPECT_EQ(best.serveCount, 1);
}

// A way looks at what has come in before anybody watches, and that may be bad news.
TEST_F(MachPortTest, isNotServedAtAllIfItsWayBreaksAtOnce) {
    best.onServe = [this] {
        best.breakDown();
    };
    port->setEnabled(true);
    best.arrive();
    port->serveOnRunLoop();
    ASSERT_FALSE(port->isEnabled());
    best.arrive();
    loop.drain();
    EXPECT_EQ(best.serveCount, 1);
}

TEST_F(MachPortTest, mayBeSwitchedOffWhileItIsServed) {
    port->serveOnRunLoop();
    port->setEnabled(true);
    best.onServe = [this] {
        port->setEnabled(false);
    };
    best.arrive();
    ASSERT_TRUE(loop.runUntil([this] { return best.serveCount == 1; }));
    EXPECT_FALSE(port->isEnabled());
}

TEST_F(MachPortTest, mayChangeItsWayWhileItIsServed) {
    port->serveOnRunLoop();
    port->setEnabled(true);
    best.onServe = [this] {
        best.breakDown();
        best.runs = false;
        port->setEnabled(true);
    };
    best.arrive();
    ASSERT_TRUE(loop.runUntil([this] { return best.serveCount == 1; }));
    second.arrive();
    EXPECT_TRUE(loop.runUntil([this] { return second.serveCount == 1; }));
}

} // namespace

} // namespace pallistrom
