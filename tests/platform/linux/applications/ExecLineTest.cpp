// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/ExecLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace pallistrom {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

TEST(ExecLine, isReadWordByWord) {
    EXPECT_THAT(ExecLine::words("/bin/a  b\t%U"), Optional(ElementsAre("/bin/a", "b", "%U")));
    EXPECT_THAT(ExecLine::words(R"("a b"c "" d)"), Optional(ElementsAre("a bc", "", "d")));
    EXPECT_THAT(ExecLine::words(R"("\\"\\$\\`\\\\\\x")"), Optional(ElementsAre("\"$`\\\\x")));
    EXPECT_THAT(ExecLine::words("sh -c 'a; \"b\"'"), Optional(ElementsAre("sh", "-c", "a; \"b\"")));
    EXPECT_THAT(ExecLine::words("a\\\\ b 100%%"), Optional(ElementsAre("a b", "100%")));
    EXPECT_THAT(ExecLine::words("  "), Optional(IsEmpty()));
}

TEST(ExecLine, hasNoWordsWithAnOpenQuote) {
    EXPECT_EQ(ExecLine::words("a \"b"), std::nullopt);
    EXPECT_EQ(ExecLine::words("a 'b\""), std::nullopt);
}

TEST(ExecLine, startsAProgramAtAnyPath) {
    EXPECT_EQ(ExecLine::starting("/usr/bin/pallistrom-1.0"), "/usr/bin/pallistrom-1.0");
    EXPECT_EQ(ExecLine::starting("/a b/c"), "\"/a b/c\"");
    EXPECT_EQ(ExecLine::starting("/50%/c"), "\"/50%%/c\"");
    EXPECT_EQ(ExecLine::starting("/$\\"), R"("/\\$\\\\")");
}

} // namespace

} // namespace pallistrom
