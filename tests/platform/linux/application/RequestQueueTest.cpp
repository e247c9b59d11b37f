// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/RequestQueue.h"

#include "OffscreenApplication.h"

#include <gtest/gtest.h>

#include <chrono>

namespace pallistrom {

namespace {

class RequestQueueTest : public testing::Test {
protected:
    static ApplicationRequest action(const QString& name) {
        ApplicationRequest request;
        request.kind = ApplicationRequest::Kind::Action;
        request.action = name;
        return request;
    }

    bool runUntilServed(std::size_t count) {
        return OffscreenApplication::runUntil([&] { return served.size() >= count; });
    }

    OffscreenApplication application;
    std::vector<ApplicationRequest> served;
    RequestQueue queue{[this](const ApplicationRequest& request) {
        served.push_back(request);
    }};
};

TEST_F(RequestQueueTest, servesInOrderAndNotFromWithinTheCall) {
    queue.open();
    queue.add(action(QStringLiteral("a")));
    queue.add(action(QStringLiteral("b")));
    EXPECT_TRUE(served.empty());
    ASSERT_TRUE(runUntilServed(2));
    EXPECT_EQ(served.front().action, QStringLiteral("a"));
    EXPECT_EQ(served.back().action, QStringLiteral("b"));
}

TEST_F(RequestQueueTest, keepsWhatComesBeforeItIsOpen) {
    queue.add(action(QStringLiteral("a")));
    QCoreApplication::processEvents();
    EXPECT_TRUE(served.empty());
    queue.open();
    EXPECT_TRUE(runUntilServed(1));
}

TEST_F(RequestQueueTest, asksOnceForWhatIsAskedManyTimesWithTheLastToken) {
    queue.open();
    for (const char* token : {"first", "second", "third"}) {
        ApplicationRequest request;
        request.activationToken = token;
        queue.add(request);
    }
    queue.add(action(QStringLiteral("a")));
    ASSERT_TRUE(runUntilServed(2));
    EXPECT_EQ(served.front().activationToken, "third");
    EXPECT_EQ(served.back().action, QStringLiteral("a"));
}

TEST_F(RequestQueueTest, letsAFloodThroughInDrops) {
    queue.open();
    const auto began = std::chrono::steady_clock::now();
    int added = 0;
    ASSERT_TRUE(OffscreenApplication::runUntil([&] {
        queue.add(action(QString::number(++added)));
        // So that there is always an event to wait for.
        QTimer::singleShot(0, [] {});
        return served.size() >= 24;
    }));
    EXPECT_GE(std::chrono::steady_clock::now() - began, std::chrono::milliseconds(200))
        << "three lots of eight, two pauses";
    EXPECT_GT(added, 24);
}

TEST_F(RequestQueueTest, servesAgainAfterAQuietTime) {
    queue.open();
    queue.add(action(QStringLiteral("a")));
    ASSERT_TRUE(runUntilServed(1));
    queue.add(action(QStringLiteral("a")));
    EXPECT_TRUE(runUntilServed(2));
}

} // namespace

} // namespace pallistrom
