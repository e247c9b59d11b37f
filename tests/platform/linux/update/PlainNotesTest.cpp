// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/PlainNotes.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>

namespace pallistrom {

namespace {

struct Notes {
    std::string_view name;
    std::string_view given;
    std::string_view shown;
};

void PrintTo(const Notes& notes, std::ostream* stream) {
    *stream << notes.name;
}

class ReleaseNotes : public testing::TestWithParam<Notes> {};

TEST_P(ReleaseNotes, arePlain) {
    EXPECT_EQ(PlainNotes::of(GetParam().given), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Texts,
    ReleaseNotes,
    testing::Values(Notes{"nothing", "", ""},
                    Notes{"plain", "One\nTwo", "One\nTwo"},
                    Notes{"plainWithSigns", "1 < 2 & 3 > 2", "1 < 2 & 3 > 2"},
                    Notes{"blankLines", "\n\n One \r\n\r\n\n\nTwo\n\n", "One\n\nTwo"},
                    Notes{"paragraphs", "<p>One</p>\n<p>Two</p>", "One\n\nTwo"},
                    Notes{"list", "<ul>\n<li>One</li>\n<li>Two</li>\n</ul>", "• One\n• Two"},
                    Notes{"lineBreaks", "One<br>Two<br/>Three", "One\nTwo\nThree"},
                    Notes{"heading", "<h2 class=\"x\">New</h2>One", "New\n\nOne"},
                    Notes{"emphasis", "a <b>bold</b> <a href='https://x'>link</a>", "a bold link"},
                    Notes{"wrappedLines", "<p>One\nand\n  two</p>", "One and two"},
                    Notes{"references",
                          "<p>&lt;b&gt; &amp;amp; &#65;&#x42; &quot;&nbsp;&hellip;</p>",
                          "<b> &amp; AB \" …"},
                    Notes{"unknownReferences",
                          "<p>&unknown; &#0; &#xD800; &#x110000; & &;</p>",
                          "&unknown; &#xD800; &#x110000; & &;"},
                    Notes{"referencesInPlainText", "Tom &amp; Jerry", "Tom &amp; Jerry"},
                    Notes{"scripts", "<p>a</p><script>alert('<p>x</p>')</script>b", "a\n\nb"},
                    Notes{"openScript", "a<script>alert()", "a"},
                    Notes{"styles", "<style>p { }</style>a", "a"},
                    Notes{"comments", "a<!-- <p>b</p> -->c", "ac"},
                    Notes{"openTag", "a<b", "a"},
                    Notes{"turnedText", "a\u202Eb\u2066c\u200Fd", "abcd"},
                    Notes{"turnedByReference", "<p>a&#x202E;b</p>", "ab"},
                    Notes{"controls", "a\x1b[31mb\x07\x7f", "a[31mb"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(PlainNotes, leavesTagsInWhatIsSaidToBePlain) {
    EXPECT_EQ(PlainNotes::ofPlain("- <b>One</b> &amp;\n\n\n- Two\u2028\u202E\x1b"),
              "- <b>One</b> &amp;\n\n- Two");
}

TEST(PlainNotes, makesOneLine) {
    EXPECT_EQ(PlainNotes::line(" 1.0\n beta\u202E\x1b "), "1.0 beta");
}

TEST(PlainNotes, copesWithManyOpenTags) {
    std::string text;
    for (int i = 0; i < 10000; ++i) {
        text += "<p<&<!--";
    }
    EXPECT_EQ(PlainNotes::of(text), "");
}

} // namespace

} // namespace pallistrom
