// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/clients/FilterRule.h"

#include "People.h"
#include "service/clients/AccessRule.h"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

namespace pallistrom {

namespace {

using KeyboardInterface::Access;

struct FilterCase {
    const char* name;
    std::optional<Hindrance> hindrance;
    bool isKeyboardPossible = true;
    bool hasSession = true;
    bool isGoingToSleep = false;
    bool isLocked = false;
    std::optional<Grant> grant = Grant::Given;
    bool isWanted = true;
};

void PrintTo(const FilterCase& row, std::ostream* out) {
    *out << row.name;
}

class FilterRule : public testing::TestWithParam<FilterCase> {};

// clang-format off
const std::vector<FilterCase> filterCases{
    {.name = "allIsWell", .hindrance = std::nullopt},
    {.name = "noVirtualKeyboards", .hindrance = Hindrance::NoKeyboard, .isKeyboardPossible = false},
    {.name = "loginScreen", .hindrance = Hindrance::NoSession, .hasSession = false},
    {.name = "goingToSleep", .hindrance = Hindrance::Asleep, .isGoingToSleep = true},
    {.name = "locked", .hindrance = Hindrance::Locked, .isLocked = true},
    {.name = "neverGranted", .hindrance = Hindrance::NotGranted, .grant = std::nullopt},
    {.name = "panicked", .hindrance = Hindrance::Suspended, .grant = Grant::Suspended},
    {.name = "nobodyWantsIt", .hindrance = Hindrance::NotWanted, .isWanted = false},
    {.name = "lockedAndAsleep", .hindrance = Hindrance::Asleep, .isGoingToSleep = true, .isLocked = true},
    {.name = "wantedWithoutGrant", .hindrance = Hindrance::NotGranted, .grant = std::nullopt, .isWanted = true},
};

// clang-format on

struct AccessCase {
    const char* name;
    Access access;
    bool isLocal = true;
    bool isKeyboardPossible = true;
    std::optional<Grant> grant = Grant::Given;
};

void PrintTo(const AccessCase& row, std::ostream* out) {
    *out << row.name;
}

class AccessRule : public testing::TestWithParam<AccessCase> {};

// clang-format off
const std::vector<AccessCase> accessCases{
    {.name = "granted", .access = Access::Granted},
    {.name = "notGranted", .access = Access::NotGranted, .grant = std::nullopt},
    {.name = "panicked", .access = Access::Panicked, .grant = Grant::Suspended},
    {.name = "remote", .access = Access::NotLocal, .isLocal = false},
    {.name = "noVirtualKeyboards", .access = Access::NoKeyboard, .isKeyboardPossible = false},
    {.name = "noVirtualKeyboardsToGrant", .access = Access::NoKeyboard, .isKeyboardPossible = false, .grant = std::nullopt},
    {.name = "remoteAndNotGranted", .access = Access::NotLocal, .isLocal = false, .grant = std::nullopt},
};

// clang-format on

template<typename Row>
std::string nameOf(const testing::TestParamInfo<Row>& info) {
    return info.param.name;
}

} // namespace

TEST_P(FilterRule, holds) {
    const FilterCase& row = GetParam();
    FilterSituation situation;
    situation.isKeyboardPossible = row.isKeyboardPossible;
    situation.login.isGoingToSleep = row.isGoingToSleep;
    if (row.hasSession) {
        situation.login.active = ActiveSession{.id = "1", .user = ann, .isLocked = row.isLocked};
    }
    situation.grant = row.grant;
    situation.isWanted = row.isWanted;
    EXPECT_EQ(hindranceTo(situation), row.hindrance);
}

INSTANTIATE_TEST_SUITE_P(Table, FilterRule, testing::ValuesIn(filterCases), nameOf<FilterCase>);

// Whatever the rest: a single hindrance is enough.
TEST(FilterRules, allowNothingUnlessEverythingIsWell) {
    int allowed = 0;
    for (unsigned bits = 0; bits < 64; ++bits) {
        FilterSituation situation;
        situation.isKeyboardPossible = (bits & 1U) != 0;
        if ((bits & 2U) != 0) {
            situation.login.active =
                ActiveSession{.id = "1", .user = ann, .isLocked = (bits & 4U) == 0};
        }
        situation.login.isGoingToSleep = (bits & 8U) == 0;
        situation.grant = (bits & 16U) != 0 ? Grant::Given : Grant::Suspended;
        situation.isWanted = (bits & 32U) != 0;
        allowed += hindranceTo(situation) ? 0 : 1;
        EXPECT_EQ(!hindranceTo(situation), bits == 63) << bits;
    }
    EXPECT_EQ(allowed, 1);
}

TEST(FilterRules, haveWordsForEachHindrance) {
    for (const FilterCase& row : filterCases) {
        EXPECT_TRUE(!row.hindrance || !describe(*row.hindrance).empty()) << row.name;
    }
}

TEST_P(AccessRule, holds) {
    const AccessCase& row = GetParam();
    LoginState login;
    if (row.isLocal) {
        login.localUsers = {ann};
    } else {
        login.localUsers = {ann + 1};
    }
    EXPECT_EQ(accessOf(ann, row.grant, login, row.isKeyboardPossible), row.access);
}

INSTANTIATE_TEST_SUITE_P(Table, AccessRule, testing::ValuesIn(accessCases), nameOf<AccessCase>);

TEST(AccessRules, doNotSpeakOfTheMoment) {
    LoginState login;
    login.localUsers = {ann};
    login.isGoingToSleep = true;
    login.active = ActiveSession{.id = "2", .user = ann + 1, .isLocked = true};
    EXPECT_EQ(accessOf(ann, Grant::Given, login, true), Access::Granted);
}

} // namespace pallistrom
