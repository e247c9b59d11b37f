// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/statusitem/MenuText.h"

#include <gtest/gtest.h>

namespace pallistrom {

namespace {

TEST(MenuText, leavesOrdinaryTitlesAsTheyAre) {
    EXPECT_EQ(MenuText::label("⌃W   Delete word"), QStringLiteral("⌃W   Delete word"));
    EXPECT_EQ(MenuText::label(""), QString());
}

TEST(MenuText, hasNoMarksOfAccessKeys) {
    EXPECT_EQ(MenuText::label("Cut & paste"), QStringLiteral("Cut && paste"));
    EXPECT_FALSE(MenuText::label("snake_case").contains(QLatin1Char('_')));
    EXPECT_EQ(MenuText::label("snake_case").size(), 10);
}

TEST(MenuText, pressesKeyEquivalentsWithControl) {
    EXPECT_EQ(MenuText::keys(","), QKeySequence(Qt::CTRL | Qt::Key_Comma));
    EXPECT_EQ(MenuText::keys("q"), QKeySequence(Qt::CTRL | Qt::Key_Q));
}

TEST(MenuText, hasNoKeysForAnythingButOneCharacter) {
    EXPECT_TRUE(MenuText::keys("").isEmpty());
    EXPECT_TRUE(MenuText::keys("qq").isEmpty());
    EXPECT_TRUE(MenuText::keys("\xF0\x9F\x99\x82").isEmpty());
}

} // namespace

} // namespace pallistrom
