// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Environment.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace pallistrom {

namespace {

constexpr auto name = "PALLISTROM_TEST_OF_ENVIRONMENT";

TEST(Environment, hasTheVariablesThatAreSet) {
    Environment::set(name, "one");
    EXPECT_EQ(Environment::value(name), "one");
    Environment::set(name, "another");
    EXPECT_EQ(Environment::value(name), "another");
    Environment::unset(name);
    EXPECT_EQ(Environment::value(name), "");
}

TEST(Environment, saysNumbers) {
    Environment::unset(name);
    EXPECT_EQ(Environment::number(name, 7), 7U);
    Environment::set(name, "10000000");
    EXPECT_EQ(Environment::number(name, 7), 10'000'000U);
    Environment::unset(name);
}

TEST(Environment, failsATestThatTakesSomethingElseForANumber) {
    for (const char* const text : {"none", "0", "-1", "10x"}) {
        Environment::set(name, text);
        EXPECT_NONFATAL_FAILURE(static_cast<void>(Environment::number(name, 7)), text);
    }
    Environment::unset(name);
}

} // namespace

} // namespace pallistrom
