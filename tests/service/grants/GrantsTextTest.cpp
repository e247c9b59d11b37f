// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/grants/GrantsText.h"

#include <gtest/gtest.h>

#include <string>

namespace pallistrom {

namespace {

constexpr const char* two = "pallistrom-grants 1\n1000 given\n1001 suspended\n";

} // namespace

TEST(GrantsText, saysWhoHasAGrant) {
    const Grants grants{{1000, Grant::Given}, {1001, Grant::Suspended}};
    EXPECT_EQ(GrantsText::make(grants), two);
    EXPECT_EQ(GrantsText::parse(two), grants);
}

TEST(GrantsText, mayGrantNothing) {
    EXPECT_EQ(GrantsText::parse("pallistrom-grants 1\n"), Grants{});
}

TEST(GrantsText, isRefusedUnlessEveryCharacterIsRight) {
    for (const char* text : {
             "",
             "pallistrom-grants 1",
             "pallistrom-grants 2\n1000 given\n",
             "1000 given\n",
             "pallistrom-grants 1\n1000 given",
             "pallistrom-grants 1\n1000\n",
             "pallistrom-grants 1\n1000 Given\n",
             "pallistrom-grants 1\n1000  given\n",
             "pallistrom-grants 1\n1000 given \n",
             "pallistrom-grants 1\n 1000 given\n",
             "pallistrom-grants 1\n\n1000 given\n",
             "pallistrom-grants 1\n1000 given\n1000 suspended\n",
             "pallistrom-grants 1\n01000 given\n",
             "pallistrom-grants 1\n+1000 given\n",
             "pallistrom-grants 1\n-1 given\n",
             "pallistrom-grants 1\n4294967295 given\n",
             "pallistrom-grants 1\n4294967296 given\n",
             "pallistrom-grants 1\n1001 given\n1000 given\n",
             "pallistrom-grants 1\r\n1000 given\r\n",
         }) {
        EXPECT_EQ(GrantsText::parse(text), std::nullopt) << text;
    }
}

TEST(GrantsText, isRefusedWhereverItWasCutOff) {
    const std::string text{two};
    for (std::size_t length = 0; length < text.size(); ++length) {
        const auto grants = GrantsText::parse(text.substr(0, length));
        const bool isWholeLines = length > 0 && text[length - 1] == '\n';
        EXPECT_EQ(grants.has_value(), isWholeLines) << length;
    }
}

TEST(GrantsText, isRefusedWhenItIsTooLong) {
    Grants grants;
    while (GrantsText::make(grants).size() <= GrantsText::longest) {
        grants.emplace(static_cast<uid_t>(grants.size() + 1000000), Grant::Given);
        grants.emplace(static_cast<uid_t>(grants.size() + 2000000), Grant::Suspended);
        for (uid_t i = 0; i < 500; ++i) {
            grants.emplace(static_cast<uid_t>(grants.size()) + i, Grant::Given);
        }
    }
    EXPECT_EQ(GrantsText::parse(GrantsText::make(grants)), std::nullopt);
}

} // namespace pallistrom
