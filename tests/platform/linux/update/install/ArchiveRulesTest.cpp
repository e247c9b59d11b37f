// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/ArchiveRules.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace pallistrom {

namespace {

using Kind = TarEntry::Kind;

class ArchiveRulesTest : public testing::Test {
protected:
    std::optional<std::string> folder(const std::string& path) {
        return rules.placeOf({.kind = Kind::Folder, .path = path});
    }

    std::optional<std::string> file(const std::string& path, std::uint64_t size = 0) {
        return rules.placeOf({.kind = Kind::File, .path = path, .size = size});
    }

    std::optional<std::string> link(const std::string& path, const std::string& target) {
        return rules.placeOf({.kind = Kind::Link, .path = path, .target = target});
    }

    ArchiveRules rules;
};

TEST_F(ArchiveRulesTest, leavesTheOneFolderOut) {
    EXPECT_EQ(folder("p-1.0"), "");
    EXPECT_EQ(file("p-1.0/bin/tool"), "bin/tool");
    EXPECT_EQ(folder("p-1.0/share"), "share");
    EXPECT_EQ(folder("p-1.0/share"), "share") << "said twice, which does no harm";
}

TEST_F(ArchiveRulesTest, refusesASecondFolderOrAFileBesideIt) {
    EXPECT_TRUE(folder("p"));
    EXPECT_FALSE(file("q/a"));
    EXPECT_FALSE(file("a"));
    EXPECT_FALSE(file("p"));
    EXPECT_FALSE(link("p", "p/a"));
}

TEST_F(ArchiveRulesTest, refusesPathsThatAreNotPlain) {
    for (const std::string path : {"",
                                   "/",
                                   "/p/a",
                                   "p//a",
                                   "p/a/",
                                   "./p/a",
                                   "p/./a",
                                   "p/../a",
                                   "../p/a",
                                   "p/..",
                                   "..",
                                   "."}) {
        EXPECT_FALSE(file(path)) << path;
    }
    EXPECT_FALSE(file(std::string("p/a\0b", 5)));
    EXPECT_FALSE(file("p/a\nb"));
    EXPECT_FALSE(file("p/\x1b[31m"));
    EXPECT_TRUE(file("p/Übersetzung..de"));
}

TEST_F(ArchiveRulesTest, refusesWhatIsTooLongOrTooDeep) {
    EXPECT_TRUE(file("p/" + std::string(255, 'a')));
    EXPECT_FALSE(file("p/" + std::string(256, 'a')));
    std::string deep = "p";
    for (int i = 0; i < 31; ++i) {
        deep += "/d";
    }
    EXPECT_TRUE(file(deep));
    EXPECT_FALSE(file(deep + "/d"));
}

TEST_F(ArchiveRulesTest, refusesTheSamePlaceTwice) {
    EXPECT_TRUE(file("p/a"));
    EXPECT_FALSE(file("p/a"));
    EXPECT_FALSE(link("p/a", "b"));
}

TEST_F(ArchiveRulesTest, refusesLinksThatLeadOut) {
    EXPECT_TRUE(link("p/lib/a.so", "a.so.1"));
    EXPECT_TRUE(link("p/lib/b.so", "../other/b.so"));
    EXPECT_FALSE(link("p/lib/1", "/etc/passwd"));
    EXPECT_FALSE(link("p/lib/2", "../../b.so"));
    EXPECT_FALSE(link("p/3", "../b"));
    EXPECT_FALSE(link("p/4", ""));
    EXPECT_FALSE(link("p/lib/5", ".."));
    EXPECT_FALSE(link("p/lib/6", "a//b"));
    EXPECT_FALSE(link("p/lib/7", "a/."));
    EXPECT_FALSE(link("p/lib/8", "x/../../../b")) << "x may be a link";
}

TEST_F(ArchiveRulesTest, refusesWhatWouldBeWrittenThroughALink) {
    EXPECT_TRUE(link("p/a", "b"));
    EXPECT_FALSE(file("p/a/c"));
    EXPECT_FALSE(folder("p/a"));
    EXPECT_FALSE(folder("p/a/c/d"));
    EXPECT_TRUE(file("p/ab"));
}

TEST_F(ArchiveRulesTest, refusesMoreThanAProgramNeeds) {
    EXPECT_FALSE(file("p/a", ArchiveRules::mostBytes + 1));
    EXPECT_FALSE(file("p/b", ~std::uint64_t{0}));
    EXPECT_TRUE(file("p/c", ArchiveRules::mostBytes - 1));
    EXPECT_FALSE(file("p/d", 2));
    EXPECT_TRUE(file("p/e", 1));
    EXPECT_FALSE(file("p/f", 1));
}

TEST_F(ArchiveRulesTest, refusesMoreEntriesThanAProgramNeeds) {
    for (std::uint64_t i = 0; i < ArchiveRules::mostEntries; ++i) {
        ASSERT_TRUE(file("p/" + std::to_string(i)));
    }
    EXPECT_FALSE(file("p/last"));
}

} // namespace

} // namespace pallistrom
