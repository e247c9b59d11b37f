// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keyboardservice/BusKeyboardService.h"

#include "BusKeyboardServiceFixture.h"
#include "platform/linux/keyboardservice/ServiceWords.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <cstdint>

namespace pallistrom {

namespace {

using KeyboardInterface::GrantAnswer;
using testing::ElementsAre;
using testing::IsEmpty;

// --- What it says.

TEST_F(BusKeyboardServiceTest, knowsNothingAtFirstAndIsToldTheAccess) {
    startService();
    EXPECT_EQ(client.obstacle(), Obstacle::NoSystemBus);
    EXPECT_TRUE(hearsUntil(std::nullopt));
    EXPECT_THAT(service->take(), ElementsAre("Get", "GetAccess"));
    EXPECT_THAT(heard, ElementsAre(Obstacle::ServiceSilent, std::nullopt));
}

TEST_F(BusKeyboardServiceTest, asksNobodyBeforeItIsOfInterest) {
    startService();
    loop.drain();
    EXPECT_THAT(service->take(), IsEmpty());
}

TEST_F(BusKeyboardServiceTest, saysThatThereIsNoServiceToBeStarted) {
    EXPECT_TRUE(hearsUntil(Obstacle::ServiceNotInstalled));
}

TEST_F(BusKeyboardServiceTest, followsTheAccess) {
    startService({.access = 1});
    ASSERT_TRUE(hearsUntil(Obstacle::NotGranted));
    service->changeAccess(0);
    EXPECT_TRUE(hearsUntil(std::nullopt));
    service->changeAccess(2);
    EXPECT_TRUE(hearsUntil(Obstacle::Panicked));
    service->changeAccess(3);
    EXPECT_TRUE(hearsUntil(Obstacle::NotLocal));
    service->changeAccess(4);
    EXPECT_TRUE(hearsUntil(Obstacle::NoVirtualKeyboard));
    service->changeAccess(0);
    EXPECT_TRUE(hearsUntil(std::nullopt));
    EXPECT_THAT(service->take(), ElementsAre("Get", "GetAccess")) << "nobody asks again";
}

TEST_F(BusKeyboardServiceTest, talksToNobodyWhileNothingChanges) {
    startService();
    ASSERT_TRUE(hearsUntil(std::nullopt));
    service->take();
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(client.obstacle(), std::nullopt);
        client.lookAgain();
    }
    client.setFrontApplication(FrontApplication::KeepsItsKeys);
    ASSERT_TRUE(loop.runUntil([this] { return !service->asked().empty(); }));
    EXPECT_THAT(service->take(), ElementsAre("SetFrontApplication 1"));
}

// --- The grant.

TEST_F(BusKeyboardServiceTest, asksForTheGrantAndIsToldTheAnswer) {
    startService({.access = 1, .keepsGrantOpen = true});
    ASSERT_TRUE(hearsUntil(Obstacle::NotGranted));
    client.requestGrant();
    EXPECT_TRUE(client.request().isOpen);
    ASSERT_TRUE(loop.runUntil([this] { return service->asked().back() == "RequestGrant"; }));
    service->changeAccess(0);
    service->closeGrant(0);
    EXPECT_TRUE(loop.runUntil([this] { return !client.request().isOpen; }));
    EXPECT_EQ(client.request().answer, GrantAnswer::Granted);
    EXPECT_EQ(client.obstacle(), std::nullopt);
}

TEST_F(BusKeyboardServiceTest, isToldWhyThereIsNoGrant) {
    startService({.access = 1});
    ASSERT_TRUE(hearsUntil(Obstacle::NotGranted));
    for (const auto answer : {GrantAnswer::Denied, GrantAnswer::NoAgent, GrantAnswer::Busy}) {
        service->answers.grant = static_cast<std::uint32_t>(answer);
        client.requestGrant();
        EXPECT_TRUE(loop.runUntil([this] { return !client.request().isOpen; }));
        EXPECT_EQ(client.request().answer, answer);
        EXPECT_EQ(client.obstacle(), Obstacle::NotGranted);
    }
}

TEST_F(BusKeyboardServiceTest, keepsOneRequestOpenAtMost) {
    startService({.access = 1, .keepsGrantOpen = true});
    ASSERT_TRUE(hearsUntil(Obstacle::NotGranted));
    client.requestGrant();
    client.requestGrant();
    settle();
    client.requestGrant();
    settle();
    service->closeGrant(1);
    ASSERT_TRUE(loop.runUntil([this] { return !client.request().isOpen; }));
    settle();
    EXPECT_THAT(service->take(), ElementsAre("SetFrontApplication 2"));
    client.requestGrant();
    EXPECT_TRUE(client.request().isOpen);
}

TEST_F(BusKeyboardServiceTest, asksForTheGrantOnceItKnowsThatItIsMissing) {
    client.requestGrant();
    EXPECT_FALSE(client.request().isOpen);
    startService({.access = 1, .keepsGrantOpen = true});
    EXPECT_TRUE(hearsUntil(Obstacle::NotGranted));
    EXPECT_TRUE(client.request().isOpen);
}

TEST_F(BusKeyboardServiceTest, doesNotAskForAGrantThatThereIs) {
    startService();
    client.requestGrant();
    ASSERT_TRUE(hearsUntil(std::nullopt));
    service->changeAccess(1);
    ASSERT_TRUE(hearsUntil(Obstacle::NotGranted));
    settle();
    EXPECT_FALSE(client.request().isOpen);
    EXPECT_THAT(service->take(), ElementsAre("SetFrontApplication 2"));
}

TEST_F(BusKeyboardServiceTest, withdrawsTheGrantAndEndsThePanic) {
    startService();
    ASSERT_TRUE(hearsUntil(std::nullopt));
    service->take();
    client.withdrawGrant();
    client.endPanic();
    ASSERT_TRUE(loop.runUntil([this] { return service->asked().size() == 2; }));
    EXPECT_THAT(service->take(), ElementsAre("WithdrawGrant", "EndPanic"));
}

// --- What it is told.

TEST_F(BusKeyboardServiceTest, passesOnWhatItIsTold) {
    startService();
    ASSERT_TRUE(hearsUntil(std::nullopt));
    service->take();
    ModifierTable table;
    table.set(58, Modifier::Control);
    table.set(100, Modifier::Level3);
    client.setSwitches(9);
    client.setModifiers(table);
    client.setFrontApplication(FrontApplication::KeepsItsKeys);
    client.setTap(true);
    client.setTap(false);
    ASSERT_TRUE(loop.runUntil([this] { return service->asked().size() == 5; }));
    EXPECT_THAT(service->take(),
                ElementsAre("SetSwitches 9",
                            "SetModifiers 58:2 100:6",
                            "SetFrontApplication 1",
                            "SetTap true",
                            "SetTap false"));
}

TEST_F(BusKeyboardServiceTest, namesItsSessionBeforeItSaysAnything) {
    startService();
    BusKeyboardService named("c7");
    ASSERT_TRUE(loop.runUntil([&] { return !named.obstacle(); }));
    EXPECT_THAT(service->take(), ElementsAre("Get", "SetSession c7", "GetAccess"));
    service.reset();
    ASSERT_TRUE(loop.runUntil([&] { return named.obstacle() == Obstacle::ServiceSilent; }));
    startService();
    ASSERT_TRUE(loop.runUntil([&] { return !named.obstacle(); }));
    EXPECT_THAT(service->take(), ElementsAre("Get", "SetSession c7", "GetAccess"));
}

TEST_F(BusKeyboardServiceTest, worksWithAServiceThatKnowsNoSessions) {
    startService({.knowsSessions = false});
    BusKeyboardService named("c7");
    ASSERT_TRUE(loop.runUntil([&] { return !named.obstacle(); }));
    service->take();
    named.setTap(true);
    ASSERT_TRUE(loop.runUntil([this] { return !service->asked().empty(); }));
    EXPECT_THAT(service->take(), ElementsAre("SetTap true"));
    EXPECT_EQ(named.obstacle(), std::nullopt);
}

TEST_F(BusKeyboardServiceTest, tellsWhoIsInFrontAtOnceButNotWithoutEnd) {
    constexpr std::size_t most = ServiceWords::mostFrontsASecond;
    startService();
    ASSERT_TRUE(hearsUntil(std::nullopt));
    service->take();
    const auto begin = std::chrono::steady_clock::now();
    std::size_t changes = 0;
    while (service->asked().size() <= 2 * most) {
        ASSERT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
        client.setFrontApplication(++changes % 2 == 0 ? FrontApplication::KeepsItsKeys
                                                      : FrontApplication::TakesEditingKeys);
        loop.drain();
        if (changes <= most) {
            ASSERT_TRUE(loop.runUntil([&] { return service->asked().size() == changes; }));
        }
    }
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));

    client.setFrontApplication(FrontApplication::EditsBySelection);
    EXPECT_TRUE(loop.runUntil([this] {
        return service->asked().back() == "SetFrontApplication 2";
    })) << "the last one is told in any case";
}

TEST_F(BusKeyboardServiceTest, tellsNoMoreModifiersThanTheServiceTakes) {
    startService();
    ASSERT_TRUE(hearsUntil(std::nullopt));
    service->take();
    ModifierTable table;
    for (EvdevCode code = 1; code <= ModifierTable::highestCode; ++code) {
        table.set(code, Modifier::Shift);
    }
    client.setModifiers(table);
    ASSERT_TRUE(loop.runUntil([this] { return !service->asked().empty(); }));
    const std::string asked = service->take().front();
    EXPECT_EQ(static_cast<std::size_t>(std::count(asked.begin(), asked.end(), ':')),
              KeyboardInterface::mostModifiers);
}

TEST_F(BusKeyboardServiceTest, believesNoServiceThatRefusesTheTap) {
    startService({.refusesTap = true});
    ASSERT_TRUE(hearsUntil(std::nullopt));
    client.setTap(true);
    EXPECT_TRUE(hearsUntil(Obstacle::ServiceSilent));
}

TEST_F(BusKeyboardServiceTest, saysAgainWhatWasTooMuch) {
    startService();
    ASSERT_TRUE(hearsUntil(std::nullopt));
    service->take();
    service->answers.refusals = 4;
    client.setSwitches(9);
    client.setModifiers(ModifierTable::standard());
    client.setFrontApplication(FrontApplication::KeepsItsKeys);
    client.setTap(true);
    ASSERT_TRUE(loop.runUntil([this] { return service->asked().size() == 8; }));
    const auto asked = service->take();
    EXPECT_TRUE(std::equal(asked.begin(), asked.begin() + 4, asked.begin() + 4));
    EXPECT_EQ(client.obstacle(), std::nullopt);
    EXPECT_THAT(heard, testing::SizeIs(2)) << "only the beginning";
}

TEST_F(BusKeyboardServiceTest, saysAgainOnlyWhatCountsByThen) {
    startService();
    ASSERT_TRUE(hearsUntil(std::nullopt));
    service->take();
    service->answers.refusals = 1;
    client.setSwitches(9);
    ASSERT_TRUE(loop.runUntil([this] { return service->answers.refusals == 0; }));
    client.setSwitches(3);
    client.setTap(true);
    ASSERT_TRUE(loop.runUntil([this] { return service->asked().size() == 3; }));
    settle();
    EXPECT_THAT(service->take(), ElementsAre("SetFrontApplication 2"));
}

TEST_F(BusKeyboardServiceTest, withdrawsTheGrantHoweverMuchWasSaid) {
    startService();
    ASSERT_TRUE(hearsUntil(std::nullopt));
    service->take();
    service->answers.refusals = 1;
    client.withdrawGrant();
    ASSERT_TRUE(loop.runUntil([this] { return service->asked().size() == 2; }));
    EXPECT_THAT(service->take(), ElementsAre("WithdrawGrant", "WithdrawGrant"));
}

TEST_F(BusKeyboardServiceTest, asksAgainIfTheQuestionWasTooMuch) {
    startService({.refusals = 1});
    ASSERT_TRUE(hearsUntil(std::nullopt));
    EXPECT_THAT(service->take(), ElementsAre("Get", "Get", "GetAccess"));
}

TEST_F(BusKeyboardServiceTest, keepsTheReasonThatTheServiceGaveForRefusingTheTap) {
    startService({.refusesTap = true});
    ASSERT_TRUE(hearsUntil(std::nullopt));
    service->changeAccess(1);
    client.setTap(true);
    ASSERT_TRUE(hearsUntil(Obstacle::NotGranted));
    settle();
    EXPECT_EQ(client.obstacle(), Obstacle::NotGranted);
}

} // namespace

} // namespace pallistrom
