// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/VersionOrder.h"

#include "VersionOrderPromises.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <string_view>

namespace pallistrom {

namespace {

struct Pair {
    std::string_view name;
    std::string_view older;
    std::string_view newer;
};

void PrintTo(const Pair& pair, std::ostream* stream) {
    *stream << pair.name;
}

class OlderVersion : public testing::TestWithParam<Pair> {};

TEST_P(OlderVersion, isOlder) {
    EXPECT_TRUE(VersionOrder::isOlder(GetParam().older, GetParam().newer));
    EXPECT_FALSE(VersionOrder::isOlder(GetParam().newer, GetParam().older));
}

INSTANTIATE_TEST_SUITE_P(Versions,
                         OlderVersion,
                         testing::Values(Pair{"lastPart", "1.2.3", "1.2.4"},
                                         Pair{"byValueAndNotByLetter", "1.9", "1.10"},
                                         Pair{"onePartMore", "1.2", "1.2.1"},
                                         Pair{"leadingZeros", "1.09", "1.10"},
                                         Pair{"beta", "1.2b1", "1.2"},
                                         Pair{"betaAfterAPoint", "1.2.b1", "1.2"},
                                         Pair{"betaOfTheNext", "1.2", "1.3b1"},
                                         Pair{"betaOfAnother", "1.2b9", "1.2b10"},
                                         Pair{"alphaBeforeBeta", "1.2a2", "1.2b1"},
                                         Pair{"wordBeforeNumber", "1.b", "1.0"},
                                         Pair{"nothing", "", "0.1"},
                                         Pair{"moreDigitsThanAnyType",
                                              "1.99999999999999999999999",
                                              "1.100000000000000000000000"},
                                         Pair{"date", "20260131", "20261031"}),
                         [](const auto& row) { return std::string(row.param.name); });

class SameVersion : public testing::TestWithParam<Pair> {};

TEST_P(SameVersion, isTheSame) {
    EXPECT_TRUE(VersionOrder::compare(GetParam().older, GetParam().newer) == 0);
}

INSTANTIATE_TEST_SUITE_P(Versions,
                         SameVersion,
                         testing::Values(Pair{"same", "1.2", "1.2"},
                                         Pair{"zeroAtTheEnd", "1.0", "1.0.0"},
                                         Pair{"zeroAndNothing", "0", ""},
                                         Pair{"leadingZero", "1.02", "1.2"},
                                         Pair{"otherSign", "1.2", "1_2"},
                                         Pair{"textAfterADash", "1.2-rc1", "1.2"},
                                         Pair{"kernelOfADistribution", "6.1.0-18-amd64", "6.1"}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(VersionOrder, isAnOrder) {
    constexpr int tries = 20000;
    constexpr std::size_t longest = 7;
    constexpr std::string_view characters = "0019ab.-";
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp): the same each time
    const auto version = [&] {
        std::string text(random() % longest, ' ');
        for (char& c : text) {
            c = characters[random() % characters.size()];
        }
        return text;
    };
    for (int i = 0; i < tries; ++i) {
        const std::string first = version();
        const std::string second = version();
        const std::string third = version();
        ASSERT_EQ(VersionOrder::brokenPromise(first, second, third), "")
            << first << " " << second << " " << third;
    }
}

TEST(VersionOrder, knowsWhatAVersionIs) {
    for (const std::string_view good : {"1", "1.2.3", "v1", "2026-01-31", "1.2b3+4"}) {
        EXPECT_TRUE(VersionOrder::isVersion(good)) << good;
    }
    for (const std::string& bad : {std::string(),
                                   std::string("beta"),
                                   std::string("1 2"),
                                   std::string("1\n"),
                                   std::string("1ü"),
                                   std::string("1\0", 2),
                                   std::string(65, '1')}) {
        EXPECT_FALSE(VersionOrder::isVersion(bad)) << bad;
    }
}

} // namespace

} // namespace pallistrom
