// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/clients/Users.h"

#include "People.h"

#include <gmock/gmock.h>

#include <map>
#include <optional>
#include <string>

namespace pallistrom {

namespace {

using std::chrono::seconds;
using testing::Eq;
using testing::Optional;

ActiveSession sessionOf(UserId user, const std::string& id) {
    return {.id = id, .user = user, .isLocked = false};
}

void switchOn(UserWish& wish) {
    wish.switches = 5;
}

} // namespace

TEST(Users, wantNothingBeforeTheySaySo) {
    Users users;
    EXPECT_TRUE(users.add(":1.1", ann));
    EXPECT_FALSE(users.wantsTap(ann));
    EXPECT_EQ(users.wishOf(ann), UserWish{});
}

TEST(Users, wantTheTapUntilTheySayGoodbye) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    users.setTap(":1.1", true);
    EXPECT_TRUE(users.wantsTap(ann));
    EXPECT_FALSE(users.wantsTap(bob));
    users.setTap(":1.1", false);
    EXPECT_FALSE(users.wantsTap(ann));
    users.vanish(":1.1", seconds{1});
    EXPECT_FALSE(users.wantsTap(ann));
    EXPECT_EQ(users.nextChange(), std::nullopt);
}

TEST(Users, areHeardForThemselvesAlone) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    ASSERT_TRUE(users.add(":1.2", bob));
    users.change(":1.1", switchOn);
    EXPECT_EQ(users.wishOf(ann).switches, 5U);
    EXPECT_EQ(users.wishOf(bob), UserWish{});
}

TEST(Users, thatAreUnknownAreNotHeard) {
    Users users;
    users.setTap(":1.9", true);
    users.change(":1.9", switchOn);
    users.vanish(":1.9", seconds{1});
    EXPECT_EQ(users.userOf(":1.9"), std::nullopt);
    EXPECT_EQ(users.nextChange(), std::nullopt);
}

TEST(Users, whoVanishKeepTheTapWithTheLastWishesFor30Seconds) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    users.setTap(":1.1", true);
    users.change(":1.1", switchOn);
    users.vanish(":1.1", seconds{100});
    EXPECT_THAT(users.nextChange(), Optional(Eq(Moment{seconds{130}})));

    users.passTime(seconds{130} - Moment{1});
    EXPECT_TRUE(users.wantsTap(ann));
    EXPECT_EQ(users.wishOf(ann).switches, 5U);

    users.passTime(seconds{130});
    EXPECT_FALSE(users.wantsTap(ann));
    EXPECT_EQ(users.wishOf(ann), UserWish{});
    EXPECT_EQ(users.nextChange(), std::nullopt);
}

TEST(Users, whoComeBackGoOnWhereTheyWere) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    users.setTap(":1.1", true);
    users.change(":1.1", switchOn);
    users.vanish(":1.1", seconds{100});
    ASSERT_TRUE(users.add(":1.2", ann));
    EXPECT_TRUE(users.wantsTap(ann));
    EXPECT_EQ(users.wishOf(ann).switches, 5U);
    users.setTap(":1.2", true);
    EXPECT_EQ(users.nextChange(), std::nullopt);
    users.passTime(seconds{500});
    EXPECT_TRUE(users.wantsTap(ann));
}

TEST(Users, whoComeBackMaySayGoodbyeAfterAll) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    users.setTap(":1.1", true);
    users.vanish(":1.1", seconds{100});
    ASSERT_TRUE(users.add(":1.2", ann));
    users.setTap(":1.2", false);
    EXPECT_FALSE(users.wantsTap(ann));
    EXPECT_EQ(users.nextChange(), std::nullopt);
}

TEST(Users, whoComeBackAndSayNothingLoseTheTapAllTheSame) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    users.setTap(":1.1", true);
    users.change(":1.1", switchOn);
    users.vanish(":1.1", seconds{100});
    ASSERT_TRUE(users.add(":1.2", ann));
    users.passTime(seconds{130});
    EXPECT_FALSE(users.wantsTap(ann));
    EXPECT_EQ(users.wishOf(ann).switches, 5U) << "somebody is still connected";
}

TEST(Users, ofASessionThatHasEndedHaveNoHoldInTheNext) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    users.setTap(":1.1", true);
    users.sessionIs(sessionOf(ann, "3"));
    users.vanish(":1.1", seconds{100});
    users.sessionIs(std::nullopt);
    users.sessionIs(sessionOf(ann, "7"));
    EXPECT_FALSE(users.wantsTap(ann));
}

TEST(Users, whoseSessionHasTheKeyboardAgainStillHaveTheirHold) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    ASSERT_TRUE(users.add(":1.2", bob));
    users.setTap(":1.1", true);
    users.sessionIs(sessionOf(ann, "3"));
    users.vanish(":1.1", seconds{100});
    users.sessionIs(sessionOf(bob, "4"));
    users.sessionIs(sessionOf(ann, "3"));
    EXPECT_TRUE(users.wantsTap(ann));
}

TEST(Users, whoAreConnectedWantTheTapInAnySession) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    users.setTap(":1.1", true);
    users.sessionIs(sessionOf(ann, "3"));
    users.sessionIs(sessionOf(ann, "7"));
    EXPECT_TRUE(users.wantsTap(ann));
}

TEST(Users, withSeveralConnectionsWantTheTapAsLongAsOneDoes) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    ASSERT_TRUE(users.add(":1.2", ann));
    users.setTap(":1.1", true);
    users.setTap(":1.2", false);
    EXPECT_TRUE(users.wantsTap(ann));
    users.setTap(":1.2", true);
    users.vanish(":1.1", seconds{1});
    EXPECT_EQ(users.nextChange(), std::nullopt) << "the other wants it still";
    users.setTap(":1.2", false);
    EXPECT_FALSE(users.wantsTap(ann));
}

TEST(Users, saidWhatWasSaidLast) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    ASSERT_TRUE(users.add(":1.2", ann));
    users.change(":1.1", [](UserWish& wish) { wish.switches = 1; });
    users.change(":1.2", [](UserWish& wish) { wish.switches = 2; });
    EXPECT_EQ(users.wishOf(ann).switches, 2U);
}

TEST(Users, whoHaveNamedTheirSessionAreHeardThereAlone) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    EXPECT_TRUE(users.setSession(":1.1", "3"));
    users.setTap(":1.1", true);
    users.change(":1.1", switchOn);
    EXPECT_FALSE(users.wantsTap(ann)) << "nobody has the keyboard";
    users.sessionIs(sessionOf(ann, "3"));
    EXPECT_TRUE(users.wantsTap(ann));
    EXPECT_EQ(users.wishOf(ann).switches, 5U);
    users.sessionIs(sessionOf(ann, "7"));
    EXPECT_FALSE(users.wantsTap(ann)) << "another terminal of the same user";
    users.sessionIs(sessionOf(bob, "3"));
    EXPECT_FALSE(users.wantsTap(ann));
    EXPECT_FALSE(users.wantsTap(bob)) << "a name says nothing about somebody else";
    users.sessionIs(sessionOf(ann, "3"));
    EXPECT_TRUE(users.wantsTap(ann));
}

TEST(Users, areNotOverruledFromAnotherSessionOfTheirs) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    ASSERT_TRUE(users.add(":1.2", ann));
    EXPECT_TRUE(users.setSession(":1.1", "3"));
    EXPECT_TRUE(users.setSession(":1.2", "remote"));
    users.sessionIs(sessionOf(ann, "3"));
    users.change(":1.1", switchOn);
    users.setTap(":1.1", true);
    users.change(":1.2", [](UserWish& wish) { wish.switches = 2; });
    users.setTap(":1.2", true);
    EXPECT_EQ(users.wishOf(ann).switches, 5U);
    users.setTap(":1.2", false);
    users.vanish(":1.2", seconds{1});
    EXPECT_TRUE(users.wantsTap(ann));
    users.setTap(":1.1", false);
    EXPECT_FALSE(users.wantsTap(ann));
}

TEST(Users, whoNameNoSessionAreHeardWhereNobodyElseWantsTheTap) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    ASSERT_TRUE(users.add(":1.2", ann));
    EXPECT_TRUE(users.setSession(":1.1", "3"));
    users.change(":1.1", switchOn);
    users.change(":1.2", [](UserWish& wish) { wish.switches = 2; });
    users.setTap(":1.2", true);
    users.sessionIs(sessionOf(ann, "3"));
    EXPECT_EQ(users.wishOf(ann).switches, 2U);
    users.setTap(":1.1", true);
    EXPECT_EQ(users.wishOf(ann).switches, 5U);
    users.sessionIs(sessionOf(ann, "7"));
    EXPECT_TRUE(users.wantsTap(ann));
    EXPECT_EQ(users.wishOf(ann).switches, 2U);
}

TEST(Users, whoVanishKeepTheTapInTheirOwnSession) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    EXPECT_TRUE(users.setSession(":1.1", "3"));
    users.setTap(":1.1", true);
    users.change(":1.1", switchOn);
    users.sessionIs(sessionOf(ann, "3"));
    users.vanish(":1.1", seconds{100});
    EXPECT_TRUE(users.wantsTap(ann));
    EXPECT_EQ(users.wishOf(ann).switches, 5U);
    users.sessionIs(sessionOf(ann, "7"));
    EXPECT_FALSE(users.wantsTap(ann));
    users.sessionIs(sessionOf(ann, "3"));
    EXPECT_TRUE(users.wantsTap(ann)) << "it may come back";

    ASSERT_TRUE(users.add(":1.2", ann));
    EXPECT_TRUE(users.setSession(":1.2", "3"));
    users.setTap(":1.2", false);
    EXPECT_FALSE(users.wantsTap(ann));
    EXPECT_EQ(users.nextChange(), std::nullopt);
}

TEST(Users, whoVanishLoseTheTapOfTheirOwnSessionAfter30Seconds) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    EXPECT_TRUE(users.setSession(":1.1", "3"));
    users.setTap(":1.1", true);
    users.sessionIs(sessionOf(ann, "3"));
    users.vanish(":1.1", seconds{100});
    EXPECT_THAT(users.nextChange(), Optional(Eq(Moment{seconds{130}})));
    users.passTime(seconds{130});
    EXPECT_FALSE(users.wantsTap(ann));
    EXPECT_EQ(users.nextChange(), std::nullopt);
}

TEST(Users, whoComeBackWithANameEndTheHoldOfWhoHadNone) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    users.setTap(":1.1", true);
    users.vanish(":1.1", seconds{100});
    ASSERT_TRUE(users.add(":1.2", ann));
    EXPECT_TRUE(users.setSession(":1.2", "3"));
    users.sessionIs(sessionOf(ann, "3"));
    EXPECT_TRUE(users.wantsTap(ann));
    users.setTap(":1.2", false);
    EXPECT_FALSE(users.wantsTap(ann));
    EXPECT_EQ(users.nextChange(), std::nullopt);
}

TEST(Users, mayChangeTheirSession) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    users.change(":1.1", switchOn);
    users.setTap(":1.1", true);
    users.sessionIs(sessionOf(ann, "3"));
    EXPECT_TRUE(users.setSession(":1.1", "3"));
    EXPECT_TRUE(users.wantsTap(ann));
    EXPECT_EQ(users.wishOf(ann), UserWish{}) << "what was said before is not taken along";
    EXPECT_TRUE(users.setSession(":1.1", "7"));
    EXPECT_FALSE(users.wantsTap(ann));
    EXPECT_EQ(users.nextChange(), std::nullopt);
    EXPECT_TRUE(users.setSession(":1.9", "3")) << "whoever that is";
}

TEST(Users, haveNoSessionsWithoutNumber) {
    Users users;
    std::size_t taken = 0;
    for (int i = 0; i < 100; ++i) {
        ASSERT_TRUE(users.add(":1.1", ann));
        taken += users.setSession(":1.1", std::to_string(i)) ? 1U : 0U;
        users.setTap(":1.1", true);
        users.vanish(":1.1", seconds{1});
    }
    EXPECT_LE(taken, Users::mostSessionsOfOne);
    EXPECT_GT(taken, 2U);
    users.passTime(seconds{31});
    ASSERT_TRUE(users.add(":1.1", ann));
    EXPECT_TRUE(users.setSession(":1.1", "101")) << "there is room again";
}

TEST(Users, allVanishWithTheBus) {
    Users users;
    ASSERT_TRUE(users.add(":1.1", ann));
    ASSERT_TRUE(users.add(":1.2", bob));
    users.setTap(":1.1", true);
    users.vanishAll(seconds{100});
    EXPECT_THAT(users.connections(), testing::IsEmpty());
    EXPECT_TRUE(users.wantsTap(ann));
    EXPECT_FALSE(users.wantsTap(bob));
}

TEST(Users, ofOneKindDoNotTakeAllTheRoom) {
    Users users;
    for (std::size_t i = 0; i < Users::mostConnectionsOfOne; ++i) {
        EXPECT_TRUE(users.add(":1." + std::to_string(i), ann));
    }
    EXPECT_FALSE(users.add(":1.100", ann));
    EXPECT_TRUE(users.add(":1.101", bob));
    users.vanish(":1.0", seconds{1});
    EXPECT_TRUE(users.add(":1.102", ann));
}

TEST(Users, areNotWithoutNumber) {
    Users users;
    for (std::size_t i = 0; i < Users::mostConnections; ++i) {
        EXPECT_TRUE(users.add(":1." + std::to_string(i), static_cast<UserId>(i)));
    }
    EXPECT_FALSE(users.add(":1.100", bob + 5000));
}

TEST(Users, whoMatterLeastMakeRoom) {
    Users users;
    for (std::size_t i = 0; i < Users::mostConnections; ++i) {
        const auto user = static_cast<UserId>(i / Users::mostConnectionsOfOne);
        ASSERT_TRUE(users.add(":1." + std::to_string(i), user));
    }
    std::map<UserId, Standing> standings;
    for (UserId user = 0; user < 8; ++user) {
        standings[user] = Standing::Granted;
    }
    const auto ofRoomFor = [&](UserId user) -> std::optional<UserId> {
        const auto name = users.whoMakesRoomFor(user, [&](UserId one) { return standings[one]; });
        return name ? users.userOf(*name) : std::nullopt;
    };
    standings[ann] = Standing::Active;
    standings[5] = Standing::Local;
    EXPECT_THAT(ofRoomFor(ann), Optional(Eq(5U)));
    standings[3] = Standing::Elsewhere;
    EXPECT_THAT(ofRoomFor(ann), Optional(Eq(3U)));
    standings[ann] = Standing::Granted;
    EXPECT_THAT(ofRoomFor(ann), Optional(Eq(3U)));
    standings[ann] = Standing::Local;
    EXPECT_THAT(ofRoomFor(ann), Optional(Eq(3U)));
    standings[ann] = Standing::Elsewhere;
    EXPECT_EQ(ofRoomFor(ann), std::nullopt) << "nobody matters less";

    standings[ann] = Standing::Active;
    standings[4] = Standing::Elsewhere;
    users.vanish(":1.24", seconds{1});
    EXPECT_THAT(ofRoomFor(ann), Optional(Eq(4U))) << "who has most";
    standings[0] = Standing::Active;
    EXPECT_EQ(ofRoomFor(0), std::nullopt) << "it has all that one may have";
}

TEST(Standings, goBySessionAndGrant) {
    LoginState login;
    EXPECT_EQ(standingOf(ann, Grant::Given, login), Standing::Elsewhere);
    login.localUsers = {ann, bob};
    EXPECT_EQ(standingOf(ann, std::nullopt, login), Standing::Local);
    EXPECT_EQ(standingOf(ann, Grant::Suspended, login), Standing::Granted);
    login.active = sessionOf(ann, "3");
    EXPECT_EQ(standingOf(ann, std::nullopt, login), Standing::Active);
    EXPECT_EQ(standingOf(bob, Grant::Given, login), Standing::Granted);
}

} // namespace pallistrom
