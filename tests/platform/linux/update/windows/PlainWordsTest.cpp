// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/windows/PlainWords.h"

#include <gtest/gtest.h>

namespace pallistrom {

namespace {

const std::string mark = "\xE2\x80\x8B";

TEST(PlainWords, leavesAVersionAsItIs) {
    EXPECT_EQ(PlainWords::shortened("1.4.2-rc1"), "1.4.2-rc1");
    EXPECT_EQ(PlainWords::shortened(""), "");
}

TEST(PlainWords, takesTheMiddleOutOfALongVersion) {
    EXPECT_EQ(PlainWords::shortened(std::string(20, 'a') + std::string(20, 'b')),
              std::string(15, 'a') + "…" + std::string(15, 'b'));
}

TEST(PlainWords, cutsNoCharacterInTwo) {
    std::string words;
    for (int i = 0; i < 40; ++i) {
        words += "é";
    }
    std::string half;
    for (int i = 0; i < 15; ++i) {
        half += "é";
    }
    EXPECT_EQ(PlainWords::shortened(words), half + "…" + half);
}

TEST(PlainWords, leavesASentenceAsItIs) {
    const std::string sentence = "The server cannot be found.\nIs this computer online?";
    EXPECT_EQ(PlainWords::breakable(sentence), sentence);
}

TEST(PlainWords, letsALineEndWithinALongWord) {
    EXPECT_EQ(PlainWords::breakable("at " + std::string(61, 'x') + " it"),
              "at " + std::string(30, 'x') + mark + std::string(30, 'x') + mark + "x it");
}

} // namespace

} // namespace pallistrom
