// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/devices/OutputQueue.h"

#include "FakeHardware.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pallistrom {

namespace {

constexpr Destination keyboard{0, Destination::Part::Keyboard};
constexpr Destination other{1, Destination::Part::Keyboard};
constexpr Destination pointer{0, Destination::Part::Pointer};

class Written final : public OutputDevices {
public:
    void write(Destination destination, std::span<const input_event> events) override {
        ++writes;
        for (const input_event& event : events) {
            text += std::to_string(destination.keyboard) +
                    (destination.part == Destination::Part::Pointer ? "p" : "") + ":" +
                    std::to_string(event.code) + " ";
            ++count;
        }
    }

    std::string text;
    std::size_t count = 0;
    int writes = 0;
};

class OutputQueueTest : public testing::Test {
protected:
    void add(std::uint16_t code, Destination destination = keyboard) {
        queue.add(destination, EV_KEY, code, 1);
    }

    // Ends the turn, and returns all that it sent.
    std::string sent() {
        queue.flush();
        return std::exchange(written.text, {});
    }

    void advance(Moment time) {
        m_now += time;
        queue.setNow(m_now);
    }

    Written written;
    OutputQueue queue{written};

private:
    Moment m_now{1'000'000};

    void SetUp() override { queue.setNow(m_now); }
};

TEST_F(OutputQueueTest, sendsTheEventsOfATurnWithOneWrite) {
    add(1);
    add(2);
    EXPECT_EQ(written.writes, 0);
    EXPECT_EQ(sent(), "0:1 0:2 ");
    EXPECT_EQ(written.writes, 1);
}

TEST_F(OutputQueueTest, writesNothingWhereThereIsNothing) {
    EXPECT_EQ(sent(), "");
    EXPECT_EQ(written.writes, 0);
}

TEST_F(OutputQueueTest, keepsTheOrderOverAllDevices) {
    add(1);
    add(2, other);
    add(3, pointer);
    add(4);
    EXPECT_EQ(sent(), "0:1 1:2 0p:3 0:4 ");
}

TEST_F(OutputQueueTest, sendsMoreThanGoesIntoOneWrite) {
    for (int count = 0; count < 1000; ++count) {
        add(7);
    }
    sent();
    EXPECT_EQ(written.count, 1000U);
}

TEST_F(OutputQueueTest, holdsUpWhatComesAfterAPause) {
    add(1);
    queue.pause();
    add(2);
    EXPECT_EQ(sent(), "0:1 ");
    EXPECT_TRUE(queue.isWaiting());
    advance(OutputQueue::pauseLength - Moment{1});
    EXPECT_EQ(sent(), "");
    advance(Moment{1});
    EXPECT_EQ(sent(), "0:2 ");
    EXPECT_FALSE(queue.isWaiting());
}

TEST_F(OutputQueueTest, saysWhenItGoesOn) {
    EXPECT_EQ(queue.due(), std::nullopt);
    add(1);
    queue.pause();
    EXPECT_EQ(queue.due(), std::nullopt) << "nothing waits";
    add(2);
    EXPECT_EQ(queue.due(), Moment{1'000'000} + OutputQueue::pauseLength);
}

TEST_F(OutputQueueTest, doesNotPauseWhereEnoughTimeHasPassed) {
    add(1);
    sent();
    advance(OutputQueue::pauseLength);
    queue.pause();
    add(2);
    EXPECT_EQ(sent(), "0:2 ");
}

TEST_F(OutputQueueTest, pausesForNoLongerThanIsLeft) {
    add(1);
    sent();
    advance(Moment{5'000});
    queue.pause();
    add(2);
    EXPECT_EQ(sent(), "");
    advance(OutputQueue::pauseLength - Moment{5'000});
    EXPECT_EQ(sent(), "0:2 ");
}

TEST_F(OutputQueueTest, takesNothingButKeysForWhatAPauseKeepsItsDistanceFrom) {
    queue.add(pointer, EV_REL, REL_X, 1);
    queue.pause();
    add(2);
    EXPECT_EQ(sent(), "0p:0 0:2 ");
}

TEST_F(OutputQueueTest, makesOnePauseAfterTheOther) {
    add(1);
    queue.pause();
    add(2);
    queue.pause();
    add(3);
    EXPECT_EQ(sent(), "0:1 ");
    advance(OutputQueue::pauseLength);
    EXPECT_EQ(sent(), "0:2 ");
    advance(OutputQueue::pauseLength);
    EXPECT_EQ(sent(), "0:3 ");
}

TEST_F(OutputQueueTest, letsNothingOvertakeWhatWaits) {
    add(1);
    queue.pause();
    add(2);
    sent();
    advance(OutputQueue::pauseLength);
    add(3);
    EXPECT_EQ(sent(), "0:2 0:3 ");
}

TEST_F(OutputQueueTest, sendsEverythingIfTold) {
    add(1);
    queue.pause();
    add(2);
    queue.pause();
    add(3);
    queue.flushAll();
    EXPECT_EQ(sent(), "0:1 0:2 0:3 ");
    add(4);
    EXPECT_EQ(sent(), "0:4 ");
}

TEST_F(OutputQueueTest, losesNothingWhenItIsFull) {
    add(0);
    queue.pause();
    std::string expected = "0:0 ";
    for (std::uint16_t code = 1; code < 3000; ++code) {
        add(code % KEY_CNT);
        expected += "0:" + std::to_string(code % KEY_CNT) + " ";
    }
    queue.flushAll();
    EXPECT_EQ(sent(), expected);
}

} // namespace

} // namespace pallistrom
