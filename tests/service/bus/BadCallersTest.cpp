// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "InChildProcess.h"
#include "ServiceTest.h"
#include "service/bus/Callers.h"
#include "service/clients/CallerBudgets.h"

#include <algorithm>
#include <deque>
#include <vector>

// Callers who ask for nonsense, or for too much.

namespace pallistrom {

namespace {

using testing::AnyOf;

using ServiceRefusal = ServiceTest;

constexpr const char* invalid = "org.freedesktop.DBus.Error.InvalidArgs";
constexpr const char* tooMuch = "org.freedesktop.DBus.Error.LimitsExceeded";

} // namespace

TEST_F(ServiceRefusal, meetsArgumentsOutOfRange) {
    grantFromBefore(me());
    start();
    Client client{loop};
    call(client, "SetTap", "b", 1);
    EXPECT_EQ(call(client, "SetSwitches", "u", 0b10000U).error, invalid);
    EXPECT_EQ(call(client, "SetSwitches", "u", 0xffffffffU).error, invalid);
    EXPECT_EQ(call(client, "SetFrontApplication", "y", 3).error, invalid);
    EXPECT_EQ(call(client, "SetFrontApplication", "y", 255).error, invalid);
    EXPECT_EQ(call(client, "SetModifiers", "a(qy)", 1, 256, 1).error, invalid);
    EXPECT_EQ(call(client, "SetModifiers", "a(qy)", 1, 65535, 1).error, invalid);
    EXPECT_EQ(call(client, "SetModifiers", "a(qy)", 1, 30, 7).error, invalid);
    const std::string longName(65, 'x');
    for (const char* name : {"", "1 2", "../1", "1\n", "\xc3\xa4", longName.c_str()}) {
        EXPECT_EQ(call(client, "SetSession", "s", name).error, invalid) << name;
    }
    EXPECT_EQ(call(client, "SetSession", "s", longName.substr(1).c_str()).error, "");
    EXPECT_FALSE(keys.isAllowed) << "not the session that has the keyboard";
    EXPECT_EQ(call(client, "SetSession", "s", "1").error, "");
    EXPECT_TRUE(keys.isAllowed);
    EXPECT_EQ(keys.table, ModifierTable::standard());
    EXPECT_EQ(keys.front, FrontApplication::TakesEditingKeys);
}

TEST_F(ServiceRefusal, meetsArgumentsOfOtherTypes) {
    start();
    Client client{loop};
    EXPECT_EQ(call(client, "GetAccess", "s", "please").error, invalid);
    EXPECT_EQ(call(client, "SetTap", "u", 1).error, invalid);
    EXPECT_EQ(call(client, "SetTap").error, invalid);
    EXPECT_EQ(call(client, "SetTap", "bb", 1, 1).error, invalid);
    EXPECT_EQ(call(client, "SetSwitches", "x", std::int64_t{1}).error, invalid);
    EXPECT_EQ(call(client, "SetModifiers", "a(uy)", 0).error, invalid);
    EXPECT_EQ(call(client, "TypeThis", "s", "x").error, "org.freedesktop.DBus.Error.UnknownMethod");
}

TEST_F(ServiceRefusal, meetsMoreModifiersThanAKeyboardHas) {
    grantFromBefore(me());
    start();
    Client client{loop};
    call(client, "SetTap", "b", 1);
    for (const std::size_t count :
         {KeyboardInterface::mostModifiers, KeyboardInterface::mostModifiers + 1}) {
        OwnedMessage message = client.make("SetModifiers");
        ASSERT_GE(sd_bus_message_open_container(message.get(), 'a', "(qy)"), 0);
        for (std::size_t i = 0; i < count; ++i) {
            ASSERT_GE(sd_bus_message_append(message.get(), "(qy)", 30, 1), 0);
        }
        ASSERT_GE(sd_bus_message_close_container(message.get()), 0);
        const auto outcome = client.send(std::move(message));
        ASSERT_TRUE(loop.runUntil([&] { return outcome->isHere; }));
        EXPECT_EQ(outcome->error, count > KeyboardInterface::mostModifiers ? invalid : "");
    }
}

TEST_F(ServiceRefusal, meetsMessagesThatAreHuge) {
    start();
    Client client{loop};
    OwnedMessage message = client.make("SetModifiers");
    const std::vector<std::uint32_t> zeros(std::size_t{4} * 1024 * 1024);
    ASSERT_GE(sd_bus_message_append_array(
                  message.get(), 'u', zeros.data(), zeros.size() * sizeof zeros.front()),
              0);
    const auto outcome = client.send(std::move(message));
    ASSERT_TRUE(loop.runUntil([&] { return outcome->isHere; }));
    EXPECT_EQ(outcome->error, invalid);
    EXPECT_EQ(accessOf(client), Access::NotGranted);
}

TEST_F(ServiceRefusal, leavesOthersTheirRoomAndTheirTime) {
    grantFromBefore(me());
    start();
    Client flood{loop};
    std::vector<std::shared_ptr<const Outcome>> outcomes;
    for (int i = 0; i < 3000; ++i) {
        outcomes.push_back(flood.call("SetTap", "b", i % 2));
    }
    Client honest{loop};
    EXPECT_EQ(accessOf(honest), Access::Granted);
    EXPECT_EQ(call(honest, "SetTap", "b", 1).error, "");
    ASSERT_TRUE(loop.runUntil([&] {
        return std::all_of(
            outcomes.begin(), outcomes.end(), [](const auto& outcome) { return outcome->isHere; });
    }));
    const auto refused = std::count_if(outcomes.begin(), outcomes.end(), [](const auto& outcome) {
        return outcome->error == tooMuch;
    });
    // What came before the bus had said who calls has a limit of its own.
    EXPECT_GT(refused, 1000);
    EXPECT_LT(refused, 3000);
    EXPECT_TRUE(keys.isAllowed);
}

TEST_F(ServiceRefusal, meetsWhoeverComesTooOften) {
    start();
    std::deque<Client> clients;
    std::size_t served = 0;
    for (std::size_t i = 0; i < Users::mostConnectionsOfOne + 3; ++i) {
        const Outcome outcome = call(clients.emplace_back(loop), "GetAccess");
        EXPECT_THAT(outcome.error, AnyOf("", tooMuch));
        served += outcome.error.empty() ? 1U : 0U;
    }
    EXPECT_EQ(served, Users::mostConnectionsOfOne);
    EXPECT_TRUE(isLogged("too many connections"));

    clients.pop_front();
    ASSERT_TRUE(loop.runUntil([&] { return call(clients.back(), "GetAccess").error.empty(); }))
        << "there is room again";
}

TEST_F(ServiceRefusal, isNotForWhoeverSitsInFront) {
    if (me() != 0) {
        GTEST_SKIP() << "only the superuser can connect as others";
    }
    start();
    std::deque<Client> crowd;
    for (std::size_t i = 0; i < Users::mostConnections; ++i) {
        // Those whom every system knows: the bus lets in nobody else.
        const auto user = static_cast<UserId>(1 + i / Users::mostConnectionsOfOne);
        EXPECT_EQ(accessOf(crowd.emplace_back(loop, user)), Access::NotLocal);
    }
    Client stranger{loop, InChildProcess::nobody};
    EXPECT_EQ(call(stranger, "GetAccess").error, tooMuch) << "nobody matters less";
    Client mine{loop};
    EXPECT_EQ(accessOf(mine), Access::NotGranted);
    EXPECT_EQ(call(crowd.back(), "GetAccess").error, "") << "one of them had to go, not all";

    // Whoever had to go is a new caller, who finds no room.
    const auto refused =
        static_cast<std::size_t>(std::count_if(crowd.begin(), crowd.end(), [this](Client& client) {
            return call(client, "GetAccess").error == tooMuch;
        }));
    EXPECT_EQ(refused, 1U);
}

TEST_F(ServiceRefusal, ofFloodsDoesNotKeepALockFromBeingHeard) {
    grantFromBefore(me());
    start();
    Client client{loop};
    call(client, "SetTap", "b", 1);
    Client flood{loop};
    std::vector<std::shared_ptr<const Outcome>> outcomes;
    for (int i = 0; i < 5000; ++i) {
        outcomes.push_back(flood.call("GetAccess"));
    }
    // The bus has passed on all of it before the service hears any.
    ASSERT_GE(sd_bus_call_method(flood.connection().get(),
                                 "org.freedesktop.DBus",
                                 "/org/freedesktop/DBus",
                                 "org.freedesktop.DBus",
                                 "GetId",
                                 nullptr,
                                 nullptr,
                                 ""),
              0);
    const auto before = client.call("SetFrontApplication", "y", 1);
    login->lock("1", true);
    EXPECT_TRUE(becomesAllowed(false));
    EXPECT_FALSE(before->isHere) << "callers wait for one another";
    const auto isHere = [](const auto& outcome) {
        return outcome->isHere;
    };
    EXPECT_FALSE(std::all_of(outcomes.begin(), outcomes.end(), isHere));
    EXPECT_TRUE(loop.runUntil(
        [&] { return before->isHere && std::all_of(outcomes.begin(), outcomes.end(), isHere); }));
}

TEST_F(ServiceRefusal, isNotLoggedAgainAndAgain) {
    start();
    for (int i = 0; i < 20; ++i) {
        Client client{loop};
        EXPECT_EQ(accessOf(client), Access::NotGranted);
        EXPECT_EQ(accessOf(client), Access::NotGranted);
        const auto outcome = client.call("RequestGrant");
        ASSERT_TRUE(loop.runUntil(
            [&] { return authority->questions().size() == static_cast<std::size_t>(i) + 1; }));
        authority->answerWithError("org.freedesktop.PolicyKit1.Error.Failed");
        ASSERT_TRUE(loop.runUntil([&] { return outcome->isHere; }));
    }
    EXPECT_EQ(timesLogged("has no access: it was not granted"), 1U);
    EXPECT_EQ(timesLogged("the grant cannot be asked for"), 1U);
    EXPECT_EQ(timesLogged("was not granted that keys are filtered"), 1U);

    // What has changed is news.
    Client client{loop};
    accessOf(client);
    login->close("1");
    ASSERT_TRUE(loop.runUntil([&] { return client.news().size() == 1; }));
    login->open({.id = "2", .user = me()});
    ASSERT_TRUE(loop.runUntil([&] { return client.news().size() == 2; }));
    EXPECT_EQ(timesLogged("has no access: no session"), 1U);
    EXPECT_EQ(timesLogged("has no access: it was not granted"), 2U);
}

TEST_F(ServiceRefusal, meetsFloodsOfWhatTheLibraryAnswersItself) {
    start();
    Client flood{loop};
    std::vector<std::shared_ptr<const Outcome>> outcomes;
    for (int i = 0; i < 200; ++i) {
        OwnedMessage message;
        ASSERT_GE(into(message,
                       [&](sd_bus_message** made) {
                           return sd_bus_message_new_method_call(
                               flood.connection().get(),
                               made,
                               "org.pallistrom.Keyboard1",
                               "/org/pallistrom/Keyboard1",
                               "org.freedesktop.DBus.Introspectable",
                               "Introspect");
                       }),
                  0);
        outcomes.push_back(flood.send(std::move(message)));
    }
    ASSERT_TRUE(loop.runUntil([&] { return outcomes.back()->isHere; }));
    EXPECT_EQ(outcomes.front()->error, "");
    EXPECT_EQ(outcomes.back()->error, tooMuch);
}

} // namespace pallistrom
