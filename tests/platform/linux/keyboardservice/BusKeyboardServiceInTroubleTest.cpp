// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "BusKeyboardServiceFixture.h"
#include "Environment.h"
#include "RecordedLog.h"
#include "pallistrom/Names.h"
#include "platform/linux/keyboardservice/BusKeyboardService.h"

#include <gmock/gmock.h>
#include <poll.h>

#include <chrono>
#include <csignal>
#include <string>
#include <vector>

namespace pallistrom {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

using BusKeyboardServiceInTroubleTest = BusKeyboardServiceTest;

// --- No bus.

TEST_F(BusKeyboardServiceInTroubleTest, waitsForNoBusThatIsNotThere) {
    bus.end();
    EXPECT_EQ(client.obstacle(), Obstacle::NoSystemBus);
    client.requestGrant();
    client.setTap(true);
    client.setTap(false);
    client.withdrawGrant();
    client.endPanic();
    client.setModifiers(ModifierTable::standard());
    client.lookAgain();
    loop.drain();
    EXPECT_EQ(client.obstacle(), Obstacle::NoSystemBus);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(BusKeyboardServiceInTroubleTest, findsABusThatComesLater) {
    bus.end();
    EXPECT_EQ(client.obstacle(), Obstacle::NoSystemBus);
    bus.start();
    EXPECT_TRUE(loop.runUntil([this] { return !heard.empty(); }));
    EXPECT_TRUE(hearsUntil(Obstacle::ServiceNotInstalled));
}

TEST_F(BusKeyboardServiceInTroubleTest, doesWithoutABusWhoseAddressMeansNothing) {
    for (const auto* const address : {"disabled:", "nonsense", "unix:path=", "unix:nothing=1"}) {
        Environment::set("DBUS_SYSTEM_BUS_ADDRESS", address);
        BusKeyboardService lonely;
        EXPECT_EQ(lonely.obstacle(), Obstacle::NoSystemBus);
        lonely.requestGrant();
        lonely.lookAgain();
        lonely.setTap(true);
        lonely.setSwitches(1);
        loop.drain();
        EXPECT_EQ(lonely.obstacle(), Obstacle::NoSystemBus) << address;
    }
    EXPECT_THAT(RecordedLog::take(), IsEmpty());
}

// Stopped, it takes connections and messages, as long as there is room, and answers none.
TEST_F(BusKeyboardServiceInTroubleTest, waitsForNoBusThatHangs) {
    bus.signal(SIGSTOP);
    EXPECT_EQ(client.obstacle(), Obstacle::NoSystemBus);
    client.requestGrant();
    client.lookAgain();
    loop.drain();
    EXPECT_EQ(client.obstacle(), Obstacle::NoSystemBus);
    bus.signal(SIGCONT);
    EXPECT_TRUE(hearsUntil(Obstacle::ServiceNotInstalled));
}

TEST_F(BusKeyboardServiceInTroubleTest, survivesTheEndOfTheBusAndFindsTheNextOne) {
    startService();
    ASSERT_TRUE(hearsUntil(std::nullopt));
    bus.end();
    ASSERT_TRUE(hearsUntil(Obstacle::NoSystemBus));
    service.reset();
    bus.start();
    startService({.access = 1});
    EXPECT_TRUE(hearsUntil(Obstacle::NotGranted));
}

TEST_F(BusKeyboardServiceInTroubleTest, closesARequestThatTheEndOfTheBusHasCutOff) {
    startService({.access = 1, .keepsGrantOpen = true});
    ASSERT_TRUE(hearsUntil(Obstacle::NotGranted));
    client.requestGrant();
    bus.end();
    EXPECT_TRUE(loop.runUntil([this] { return !client.request().isOpen; }));
    EXPECT_EQ(client.request().answer, std::nullopt);
}

// What was said last has to leave the program, but not at any price.
TEST_F(BusKeyboardServiceInTroubleTest, waitsALittleForABusThatReadsNothing) {
    BusConnection full;
    ASSERT_TRUE(loop.runUntil([&] { return full.isReady(); }));
    EXPECT_TRUE(full.flush(std::chrono::milliseconds(0))) << "nothing is left to send";
    bus.signal(SIGSTOP);
    std::vector<BusSlot> calls;
    while ((sd_bus_get_events(full.get()) & POLLOUT) == 0) {
        calls.push_back(full.ask(
            full.makeCall("org.example", "/", "org.example", "Call"),
            [](sd_bus_message* /*answer*/, void* /*none*/, sd_bus_error*) { return 0; },
            nullptr));
    }
    EXPECT_FALSE(full.flush(std::chrono::milliseconds(20)));
    bus.signal(SIGCONT);
    EXPECT_TRUE(full.flush(std::chrono::seconds(20)));
    EXPECT_EQ(sd_bus_get_events(full.get()) & POLLOUT, 0);
}

// --- A service that comes and goes.

TEST_F(BusKeyboardServiceInTroubleTest, noticesThatTheServiceEndsAndAsksTheNextOne) {
    startService();
    ASSERT_TRUE(hearsUntil(std::nullopt));
    service.reset();
    EXPECT_TRUE(hearsUntil(Obstacle::ServiceSilent));
    startService({.access = 1});
    EXPECT_TRUE(hearsUntil(Obstacle::NotGranted));
    EXPECT_THAT(service->take(), ElementsAre("Get", "GetAccess"));
}

TEST_F(BusKeyboardServiceInTroubleTest, findsAServiceThatComesAfterIt) {
    ASSERT_TRUE(hearsUntil(Obstacle::ServiceNotInstalled));
    startService();
    EXPECT_TRUE(hearsUntil(std::nullopt));
}

TEST_F(BusKeyboardServiceInTroubleTest, looksAgainWhenItIsTold) {
    ASSERT_TRUE(hearsUntil(Obstacle::ServiceNotInstalled));
    bus.addService(std::string(Names::keyboardBusName), "/bin/false");
    bus.signal(SIGHUP);
    // It ends before it has the name: now there is one, and it does not answer.
    EXPECT_TRUE(loop.runUntil([this] {
        client.lookAgain();
        return client.obstacle() == Obstacle::ServiceSilent;
    }));
}

TEST_F(BusKeyboardServiceInTroubleTest, closesARequestThatTheEndOfTheServiceHasCutOff) {
    startService({.access = 1, .keepsGrantOpen = true});
    ASSERT_TRUE(hearsUntil(Obstacle::NotGranted));
    client.requestGrant();
    ASSERT_TRUE(loop.runUntil([this] { return service->asked().back() == "RequestGrant"; }));
    service.reset();
    EXPECT_TRUE(hearsUntil(Obstacle::ServiceSilent));
    EXPECT_FALSE(client.request().isOpen);
}

// --- A service that is not what it should be.

TEST_F(BusKeyboardServiceInTroubleTest, waitsForNoServiceThatHangs) {
    startService({.hangs = true});
    ASSERT_TRUE(hearsUntil(Obstacle::ServiceSilent));
    settle();
    client.lookAgain();
    settle();
    EXPECT_THAT(service->take(), Not(Contains("Get"))) << "the question is still open";
    EXPECT_EQ(client.obstacle(), Obstacle::ServiceSilent);
}

TEST_F(BusKeyboardServiceInTroubleTest, hasNoTrustInAnotherVersion) {
    startService({.version = 2});
    EXPECT_TRUE(hearsUntil(Obstacle::ServiceMismatch));
    EXPECT_THAT(service->take(), ElementsAre("Get")) << "what else it takes is not known";
    EXPECT_THAT(RecordedLog::take(), SizeIs(1));
}

TEST_F(BusKeyboardServiceInTroubleTest, hasNoTrustInAnswersOfAnotherType) {
    startService({.type = "s"});
    EXPECT_TRUE(hearsUntil(Obstacle::ServiceMismatch));
}

TEST_F(BusKeyboardServiceInTroubleTest, hasNoTrustInAnswersThatMeanNothing) {
    startService({.access = 77});
    EXPECT_TRUE(hearsUntil(Obstacle::ServiceMismatch));
    service->changeAccess(0);
    EXPECT_TRUE(hearsUntil(std::nullopt));
    service->answers.type = "s";
    service->changeAccess(0);
    EXPECT_TRUE(hearsUntil(Obstacle::ServiceMismatch));
}

TEST_F(BusKeyboardServiceInTroubleTest, takesAnAnswerThatMeansNothingForNoGrant) {
    startService({.access = 1, .grant = 99});
    ASSERT_TRUE(hearsUntil(Obstacle::NotGranted));
    client.requestGrant();
    EXPECT_TRUE(loop.runUntil([this] { return !client.request().isOpen; }));
    EXPECT_EQ(client.request().answer, std::nullopt);
}

TEST_F(BusKeyboardServiceInTroubleTest, believesNobodyElse) {
    startService({.access = 1});
    ASSERT_TRUE(hearsUntil(Obstacle::NotGranted));
    const std::string listener = service->listeners().front();
    heard.clear();

    BusConnection stranger;
    ASSERT_TRUE(loop.runUntil([&] { return stranger.isReady(); }));
    sd_bus_message* made = nullptr;
    sd_bus_message_new_signal(stranger.get(),
                              &made,
                              Names::keyboardObject.data(),
                              Names::keyboardBusName.data(),
                              "AccessChanged");
    const BusMessage access(made);
    sd_bus_message_append(made, "u", 0U);
    sd_bus_message_set_destination(made, listener.c_str());
    sd_bus_send(nullptr, made, nullptr);
    sd_bus_message_new_signal(
        stranger.get(), &made, "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameOwnerChanged");
    const BusMessage owner(made);
    sd_bus_message_append(made, "sss", Names::keyboardBusName.data(), ":1.0", ":1.999");
    sd_bus_message_set_destination(made, listener.c_str());
    sd_bus_send(nullptr, made, nullptr);
    // What one connection sends arrives in its order.
    bool isAnswered = false;
    const BusSlot last = stranger.ask(
        stranger.makeCall(listener.c_str(), "/", "org.freedesktop.DBus.Peer", "Ping"),
        [](sd_bus_message* /*answer*/, void* done, sd_bus_error* /*error*/) {
            *static_cast<bool*>(done) = true;
            return 0;
        },
        &isAnswered);
    ASSERT_TRUE(loop.runUntil([&] { return isAnswered; }));
    EXPECT_THAT(heard, IsEmpty());
    EXPECT_EQ(client.obstacle(), Obstacle::NotGranted);
}

// --- What the log says.

TEST_F(BusKeyboardServiceInTroubleTest, logsNothingWhereThereIsNoService) {
    ASSERT_TRUE(hearsUntil(Obstacle::ServiceNotInstalled));
    client.lookAgain();
    loop.drain();
    bus.end();
    ASSERT_TRUE(hearsUntil(Obstacle::NoSystemBus));
    EXPECT_THAT(RecordedLog::take(), IsEmpty());
}

TEST_F(BusKeyboardServiceInTroubleTest, logsEachChangeOnce) {
    startService();
    ASSERT_TRUE(hearsUntil(std::nullopt));
    EXPECT_THAT(RecordedLog::take(), SizeIs(1));
    service->changeAccess(1);
    ASSERT_TRUE(hearsUntil(Obstacle::NotGranted));
    EXPECT_THAT(RecordedLog::take(), SizeIs(1));
    service->changeAccess(1);
    service->changeAccess(2);
    ASSERT_TRUE(hearsUntil(Obstacle::Panicked));
    EXPECT_THAT(RecordedLog::take(), IsEmpty());
}

} // namespace

} // namespace pallistrom
