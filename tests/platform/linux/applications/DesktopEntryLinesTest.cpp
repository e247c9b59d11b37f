// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/DesktopEntryLines.h"

#include "DesktopEntryPromises.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace pallistrom {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(DesktopEntryLines, areReadGroupByGroup) {
    std::string seen;
    DesktopEntryLines::forEachValue(
        "a=0\n[B]\n# c=1\n z = 2 = 3 \r\nrubbish\n=4\n[C]\nz=5\n[B]\nz=\n",
        "B",
        [&](std::string_view key, std::string_view value) {
            seen.append(key).append(":").append(value).append("|");
        });
    EXPECT_EQ(seen, "z:2 = 3|z:|");
}

TEST(DesktopEntryLines, areWellFormedIfEachReaderTakesThem) {
    const auto isWellFormed = DesktopEntryLines::isWellFormed;
    EXPECT_TRUE(isWellFormed("[Desktop Entry]"));
    EXPECT_TRUE(isWellFormed("\n# x\r\n[Desktop Entry]\r\na=b\r\n\r\n[Other]\nc=\n"));
    EXPECT_FALSE(isWellFormed(""));
    EXPECT_FALSE(isWellFormed("a=b\n[Desktop Entry]\n"));
    EXPECT_FALSE(isWellFormed("[Other]\n[Desktop Entry]\n"));
    EXPECT_FALSE(isWellFormed("[Desktop Entry]\nrubbish\n"));
    EXPECT_FALSE(isWellFormed("[Desktop Entry]\n=b\n"));
    EXPECT_FALSE(isWellFormed("[Desktop Entry]\n[a=b\n"));
    EXPECT_FALSE(isWellFormed(std::string("[Desktop Entry]\na=\0b\n", 21)));
}

TEST(DesktopEntryLines, areChangedWhereTheyStand) {
    EXPECT_EQ(DesktopEntryLines::withChanges(
                  "[Desktop Entry]\n# a\n a = 1\nb=2\na=3\nc=4\n\n# end\n[Other]\na=5\nb=6",
                  {{"a", "x"}, {"b", std::nullopt}, {"x", "y"}, {"e", std::nullopt}}),
              "[Desktop Entry]\n# a\na=x\nc=4\nx=y\n\n# end\n[Other]\na=5\nb=6\n");
}

TEST(DesktopEntryLines, thatAreNewEndAsTheOthersDo) {
    EXPECT_EQ(DesktopEntryLines::withChanges("[Desktop Entry]\r\na=1\r\n[Other]\n", {{"b", "2"}}),
              "[Desktop Entry]\r\na=1\r\nb=2\r\n[Other]\n");
}

TEST(DesktopEntryLines, escapeWhatWouldBeLost) {
    EXPECT_EQ(DesktopEntryLines::escaped(" a\\b\n\t\rc d "), "\\sa\\\\b\\n\\t\\rc d\\s");
    EXPECT_EQ(DesktopEntryLines::unescaped("\\sa\\\\b\\n\\t\\rc\\d\\"), " a\\b\n\t\rc\\d\\");
}

TEST(DesktopEntryLines, holdLists) {
    EXPECT_THAT(DesktopEntryLines::list("a;b"), ElementsAre("a", "b"));
    EXPECT_THAT(DesktopEntryLines::list(" a ;; b\\;c\\s;"), ElementsAre("a", "b;c "));
    EXPECT_THAT(DesktopEntryLines::list(";"), IsEmpty());
    EXPECT_EQ(DesktopEntryLines::listValue({"a", "b;c"}), "a;b\\;c;");
}

TEST(DesktopEntryLines, keepTheirPromisesForWhateverText) {
    constexpr unsigned seed = 20260;
    std::mt19937 random(seed); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same texts each time
    const std::vector<std::string> pieces{"[Desktop Entry]",
                                          "[Other]",
                                          "\n",
                                          "\r\n",
                                          "=",
                                          " ",
                                          "#",
                                          "Exec",
                                          "TryExec",
                                          "Hidden",
                                          "true",
                                          "false",
                                          "K",
                                          "Type",
                                          "Application",
                                          "OnlyShowIn",
                                          "NotShowIn",
                                          "A",
                                          "B",
                                          ";",
                                          "\\",
                                          "\"",
                                          "'",
                                          "%",
                                          "$",
                                          "/",
                                          "Kx"};
    const auto anyText = [&](unsigned most) {
        std::string text;
        for (auto count = random() % most; count > 0; --count) {
            text += pieces[random() % pieces.size()];
        }
        return text;
    };
    for (int i = 0; i < 20000; ++i) {
        const auto text = (i % 2 == 0 ? "[Desktop Entry]\n" : "") + anyText(40);
        const auto value = anyText(8);
        ASSERT_EQ(DesktopEntryLines::brokenPromise(text, anyText(2), value), "")
            << text << "\nvalue: " << value;
    }
}

} // namespace

} // namespace pallistrom
