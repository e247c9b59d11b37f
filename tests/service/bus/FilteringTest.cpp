// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "InChildProcess.h"
#include "ServiceTest.h"
#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"

#include <linux/input-event-codes.h>

// When keys are filtered, with whose wishes, and when they no longer are.

namespace pallistrom {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using ServiceFiltering = ServiceTest;

// The bus lets in only users whom the system knows.
constexpr UserId somebodyElse = InChildProcess::nobody;

bool isOn(std::size_t shortcut) {
    return Preferences::isEnabled(ShortcutLibrary::all.at(shortcut).id);
}

} // namespace

TEST_F(ServiceFiltering, beginsWhenAGrantedUserAsksForIt) {
    grantFromBefore(me());
    start();
    EXPECT_THAT(keys.calls, ElementsAre("prepare"));
    Client client{loop};
    EXPECT_EQ(accessOf(client), Access::Granted);
    EXPECT_EQ(call(client, "SetTap", "b", 1).error, "");
    EXPECT_TRUE(keys.isAllowed);
    EXPECT_TRUE(platform.tapEnabled);
    EXPECT_EQ(call(client, "SetTap", "b", 0).error, "");
    EXPECT_FALSE(keys.isAllowed);
    EXPECT_TRUE(isLogged("filtering the keys of user " + std::to_string(me())));
}

TEST_F(ServiceFiltering, isNotForUsersWithoutAGrant) {
    grantFromBefore(somebodyElse);
    start();
    Client client{loop};
    EXPECT_EQ(accessOf(client), Access::NotGranted);
    EXPECT_EQ(call(client, "SetTap", "b", 1).error, "") << "harmless, so not an error";
    EXPECT_FALSE(keys.isAllowed);
    EXPECT_TRUE(isLogged("filtering no keys: it was not granted"));
}

TEST_F(ServiceFiltering, makesNoKeyboardsBeforeTheFirstGrant) {
    start();
    settle();
    EXPECT_THAT(keys.calls, IsEmpty());
}

TEST_F(ServiceFiltering, obeysTheWishesOfTheUser) {
    grantFromBefore(me());
    start();
    Client client{loop};
    call(client, "SetSwitches", "u", 0b0101U);
    call(client,
         "SetModifiers",
         "a(qy)",
         2,
         KEY_CAPSLOCK,
         static_cast<int>(Modifier::Control),
         KEY_LEFTALT,
         static_cast<int>(Modifier::Option));
    call(client, "SetFrontApplication", "y", 1);
    EXPECT_EQ(keys.table, std::nullopt) << "nobody filters yet";
    call(client, "SetTap", "b", 1);

    EXPECT_TRUE(isOn(0));
    EXPECT_FALSE(isOn(1));
    EXPECT_TRUE(isOn(2));
    EXPECT_FALSE(isOn(3));
    ModifierTable expected;
    expected.set(KEY_CAPSLOCK, Modifier::Control);
    expected.set(KEY_LEFTALT, Modifier::Option);
    EXPECT_EQ(keys.table, expected);
    EXPECT_EQ(keys.front, FrontApplication::KeepsItsKeys);

    call(client, "SetSwitches", "u", 0b1000U);
    EXPECT_FALSE(isOn(0));
    EXPECT_TRUE(isOn(3));
    call(client, "SetFrontApplication", "y", 2);
    EXPECT_EQ(keys.front, FrontApplication::EditsBySelection);
}

TEST_F(ServiceFiltering, needsASessionAtTheKeyboard) {
    grantFromBefore(me());
    login->close("1");
    start();
    Client client{loop};
    EXPECT_EQ(accessOf(client), Access::NotLocal);
    call(client, "SetTap", "b", 1);
    EXPECT_FALSE(keys.isAllowed);

    login->open({.id = "2", .user = me()});
    login->activate("2");
    EXPECT_TRUE(becomesAllowed(true));
    ASSERT_TRUE(loop.runUntil([&] { return !client.news().empty(); }));
    EXPECT_THAT(client.news(), ElementsAre(0U));
}

TEST_F(ServiceFiltering, isNotForSessionsThatAreElsewhere) {
    grantFromBefore(me());
    login->close("1");
    login->open({.id = "2", .user = me(), .seat = ""});
    login->open({.id = "3", .user = somebodyElse});
    login->activate("3");
    start();
    Client client{loop};
    EXPECT_EQ(accessOf(client), Access::NotLocal);
    call(client, "SetTap", "b", 1);
    EXPECT_FALSE(keys.isAllowed);
}

TEST_F(ServiceFiltering, endsWhenAnotherSessionTakesTheKeyboard) {
    grantFromBefore(me());
    start();
    Client client{loop};
    EXPECT_EQ(accessOf(client), Access::Granted);
    call(client, "SetTap", "b", 1);
    login->open({.id = "2", .user = somebodyElse});
    login->activate("2");
    EXPECT_TRUE(becomesAllowed(false));
    EXPECT_EQ(accessOf(client), Access::Granted) << "that is of the moment";
    login->activate("1");
    EXPECT_TRUE(becomesAllowed(true));
    EXPECT_THAT(client.news(), IsEmpty());
}

TEST_F(ServiceFiltering, isNotForLoginAndLockScreens) {
    grantFromBefore(me());
    start();
    Client client{loop};
    call(client, "SetTap", "b", 1);
    for (const char* kind : {"greeter", "lock-screen"}) {
        login->open({.id = "screen", .user = me(), .kind = kind});
        login->activate("screen");
        EXPECT_TRUE(becomesAllowed(false)) << kind;
        login->activate("1");
        EXPECT_TRUE(becomesAllowed(true)) << kind;
        login->close("screen");
    }
}

TEST_F(ServiceFiltering, endsWhileTheSessionIsLocked) {
    grantFromBefore(me());
    start();
    Client client{loop};
    call(client, "SetTap", "b", 1);
    login->lock("1", true);
    EXPECT_TRUE(becomesAllowed(false));
    EXPECT_TRUE(isLogged("the session is locked"));
    login->lock("1", false);
    EXPECT_TRUE(becomesAllowed(true));
}

TEST_F(ServiceFiltering, endsWhileTheMachineSleeps) {
    grantFromBefore(me());
    start();
    Client client{loop};
    call(client, "SetTap", "b", 1);
    keys.calls.clear();
    login->prepareForSleep(true);
    EXPECT_TRUE(becomesAllowed(false));
    login->prepareForSleep(false);
    EXPECT_TRUE(becomesAllowed(true));
    EXPECT_THAT(keys.calls, ElementsAre("sleep", "forbid", "awake", "allow"));
}

TEST_F(ServiceFiltering, endsWithTheSession) {
    grantFromBefore(me());
    start();
    Client client{loop};
    call(client, "SetTap", "b", 1);
    login->close("1");
    EXPECT_TRUE(becomesAllowed(false));
}

TEST_F(ServiceFiltering, isNotForAnotherTerminalOfTheSameUser) {
    grantFromBefore(me());
    start();
    Client client{loop};
    EXPECT_EQ(call(client, "SetSession", "s", "1").error, "");
    call(client, "SetSwitches", "u", 0b0010U);
    call(client, "SetTap", "b", 1);
    EXPECT_TRUE(keys.isAllowed);
    EXPECT_TRUE(isOn(1));
    login->open({.id = "2", .user = me()});
    login->activate("2");
    EXPECT_TRUE(becomesAllowed(false));
    EXPECT_TRUE(isLogged("nobody asks for it"));
    login->activate("1");
    EXPECT_TRUE(becomesAllowed(true));
}

TEST_F(ServiceFiltering, isNotChangedFromARemoteSession) {
    grantFromBefore(me());
    start();
    login->open({.id = "remote", .user = me(), .seat = ""});
    Client desk{loop};
    call(desk, "SetSession", "s", "1");
    call(desk, "SetSwitches", "u", 0b0010U);
    call(desk, "SetTap", "b", 1);
    Client remote{loop};
    call(remote, "SetSession", "s", "remote");
    call(remote, "SetSwitches", "u", 0b0101U);
    call(remote, "SetFrontApplication", "y", 1);
    call(remote, "SetTap", "b", 1);
    EXPECT_TRUE(isOn(1));
    EXPECT_FALSE(isOn(0));
    EXPECT_EQ(keys.front, FrontApplication::TakesEditingKeys);
    call(remote, "SetTap", "b", 0);
    EXPECT_TRUE(keys.isAllowed);
}

TEST_F(ServiceFiltering, outlivesAProgramThatVanishes) {
    grantFromBefore(me());
    start();
    auto client = std::make_unique<Client>(loop);
    call(*client, "SetSwitches", "u", 0b0010U);
    call(*client, "SetTap", "b", 1);
    client.reset();
    settle();
    EXPECT_TRUE(keys.isAllowed);
    EXPECT_TRUE(isOn(1));

    // It comes back, in the same session or the next.
    Client again{loop};
    call(again, "SetTap", "b", 1);
    EXPECT_TRUE(keys.isAllowed);
    call(again, "SetTap", "b", 0);
    EXPECT_FALSE(keys.isAllowed);
}

TEST_F(ServiceFiltering, ofAProgramThatVanishedEndsWithItsSession) {
    grantFromBefore(me());
    start();
    auto client = std::make_unique<Client>(loop);
    call(*client, "SetTap", "b", 1);
    client.reset();
    settle();
    EXPECT_TRUE(keys.isAllowed);
    login->close("1");
    EXPECT_TRUE(becomesAllowed(false));
    const int questions = login->questions();
    login->open({.id = "2", .user = me()});
    login->activate("2");
    ASSERT_TRUE(loop.runUntil([&] { return login->questions() > questions; }));
    settle();
    EXPECT_FALSE(keys.isAllowed);
}

TEST_F(ServiceFiltering, endsWithTheGrant) {
    grantFromBefore(me());
    start();
    Client client{loop};
    accessOf(client);
    call(client, "SetTap", "b", 1);
    EXPECT_TRUE(keys.isAllowed);
    EXPECT_EQ(call(client, "WithdrawGrant").error, "");
    EXPECT_FALSE(keys.isAllowed);
    ASSERT_TRUE(loop.runUntil([&] { return !client.news().empty(); }));
    EXPECT_THAT(client.news(), ElementsAre(1U));
    EXPECT_TRUE(loop.runUntil([&] { return !std::filesystem::exists(folder.path() / "grants"); }));
}

TEST_F(ServiceFiltering, endsInPanicUntilTheUserTakesThatBack) {
    grantFromBefore(me());
    start();
    Client client{loop};
    accessOf(client);
    call(client, "SetTap", "b", 1);
    keys.panic();
    EXPECT_FALSE(keys.isAllowed);
    ASSERT_TRUE(loop.runUntil([&] { return !client.news().empty(); }));
    EXPECT_THAT(client.news(), ElementsAre(2U));
    EXPECT_TRUE(isLogged("panic"));

    // Not even a new service forgets it.
    stop();
    start();
    Client again{loop};
    call(again, "SetTap", "b", 1);
    EXPECT_FALSE(keys.isAllowed);
    EXPECT_EQ(accessOf(again), Access::Panicked);
    EXPECT_EQ(call(again, "EndPanic").error, "");
    EXPECT_TRUE(keys.isAllowed);
    EXPECT_EQ(accessOf(again), Access::Granted);
}

TEST_F(ServiceFiltering, isNotWithoutVirtualKeyboards) {
    grantFromBefore(me());
    start();
    Client client{loop};
    accessOf(client);
    call(client, "SetTap", "b", 1);
    keys.setCanMakeKeyboards(false);
    EXPECT_FALSE(keys.isAllowed);
    ASSERT_TRUE(loop.runUntil([&] { return !client.news().empty(); }));
    EXPECT_THAT(client.news(), ElementsAre(4U));
}

TEST_F(ServiceFiltering, doesNotBelieveSignalsOfOthers) {
    grantFromBefore(me());
    start();
    Client client{loop};
    call(client, "SetTap", "b", 1);
    login->lock("1", true);
    ASSERT_TRUE(becomesAllowed(false));
    settle();
    const int questions = login->questions();

    const Connection liar{loop};
    OwnedMessage lie;
    ASSERT_GE(into(lie,
                   [&](sd_bus_message** made) {
                       return sd_bus_message_new_signal(liar.get(),
                                                        made,
                                                        "/org/freedesktop/login1",
                                                        "org.freedesktop.login1.Manager",
                                                        "PrepareForSleep");
                   }),
              0);
    ASSERT_GE(sd_bus_message_append(lie.get(), "b", 0), 0);
    const char* serviceName = nullptr;
    OwnedMessage owner;
    ASSERT_GE(into(owner,
                   [&](sd_bus_message** answer) {
                       return sd_bus_call_method(liar.get(),
                                                 "org.freedesktop.DBus",
                                                 "/org/freedesktop/DBus",
                                                 "org.freedesktop.DBus",
                                                 "GetNameOwner",
                                                 nullptr,
                                                 answer,
                                                 "s",
                                                 "org.pallistrom.Keyboard1");
                   }),
              0);
    ASSERT_GE(sd_bus_message_read(owner.get(), "s", &serviceName), 0);
    ASSERT_GE(sd_bus_send_to(liar.get(), lie.get(), serviceName, nullptr), 0);
    settle();
    settle();
    EXPECT_FALSE(keys.isAllowed);
    EXPECT_EQ(login->questions(), questions);
}

TEST_F(ServiceFiltering, waitsForALoginManager) {
    grantFromBefore(me());
    login.reset();
    start();
    Client client{loop};
    EXPECT_EQ(accessOf(client), Access::NotLocal);
    call(client, "SetTap", "b", 1);
    EXPECT_FALSE(keys.isAllowed);
    login = std::make_unique<FakeLogin>(loop);
    login->open({.id = "1", .user = me()});
    login->activate("1");
    EXPECT_TRUE(becomesAllowed(true));
}

TEST_F(ServiceFiltering, isOfEachUserAlone) {
    if (me() != 0) {
        GTEST_SKIP() << "only the superuser can connect as somebody else";
    }
    grantFromBefore(somebodyElse);
    start();
    Client other{loop, somebodyElse};
    Client mine{loop};
    call(other, "SetSwitches", "u", 0b0001U);
    call(other, "SetTap", "b", 1);
    call(mine, "SetTap", "b", 1);
    EXPECT_EQ(accessOf(other), Access::NotLocal);
    EXPECT_EQ(accessOf(mine), Access::NotGranted);
    EXPECT_FALSE(keys.isAllowed) << "my session, the other's grant";

    login->open({.id = "2", .user = somebodyElse});
    login->activate("2");
    EXPECT_TRUE(becomesAllowed(true));
    EXPECT_TRUE(isOn(0));
    call(mine, "SetSwitches", "u", 0b1110U);
    call(mine, "SetTap", "b", 0);
    call(mine, "WithdrawGrant");
    call(mine, "EndPanic");
    EXPECT_TRUE(keys.isAllowed) << "nothing of that is the other's";
    EXPECT_TRUE(isOn(0));
    EXPECT_FALSE(isOn(1));
}

} // namespace pallistrom
