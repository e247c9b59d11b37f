// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/FeedReading.h"

#include "FeedText.h"
#include "SigningKey.h"

#include <gmock/gmock.h>

#include <string>

namespace pallistrom {

namespace {

using FeedText::archive;
using FeedText::feed;
using FeedText::item;
using testing::HasSubstr;

FeedAnswer read(const std::string& items, const std::string& newestSeen = "") {
    const SigningKey key;
    return readFeed(key.signedFeed(feed(items)),
                    key.publicKey(),
                    newestSeen,
                    {.currentVersion = "1", .machine = "x86_64", .longestArchive = 1000000});
}

TEST(FeedReading, findsWhatToOffer) {
    const auto answer = read(item("2", archive("https://a/2", 5)));
    EXPECT_EQ(answer.problem, "");
    EXPECT_EQ(answer.newestVersion, "2");
    ASSERT_TRUE(answer.found && answer.found->archive);
    EXPECT_EQ(answer.found->item.version, "2");
    EXPECT_EQ(answer.found->archive->address, "https://a/2");
    EXPECT_FALSE(answer.found->isCritical);
}

TEST(FeedReading, findsNothing) {
    const auto answer = read(item("1", archive()));
    EXPECT_EQ(answer.problem, "");
    EXPECT_EQ(answer.newestVersion, "1");
    EXPECT_FALSE(answer.found);
}

TEST(FeedReading, offersNewsWithoutAnArchive) {
    const auto answer = read(item("2",
                                  "<link>https://a/</link><sparkle:informationalUpdate/>"
                                  "<sparkle:criticalUpdate/>" +
                                      archive()));
    ASSERT_TRUE(answer.found);
    EXPECT_FALSE(answer.found->archive);
    EXPECT_TRUE(answer.found->isCritical);
}

TEST(FeedReading, refusesFeedsOfOthers) {
    const SigningKey own(1);
    const SigningKey other(2);
    const std::string text = feed(item("2", archive()));
    for (const std::string& bad : {text, other.signedFeed(text), std::string()}) {
        const auto answer = readFeed(bad, own.publicKey(), "", {.currentVersion = "1"});
        EXPECT_THAT(answer.problem, HasSubstr("signature"));
        EXPECT_FALSE(answer.found);
    }
}

TEST(FeedReading, refusesWhatCannotBeRead) {
    const auto answer = read("<item>");
    EXPECT_EQ(answer.problem, "The update feed is broken in line 4.");
    EXPECT_FALSE(answer.found);
}

TEST(FeedReading, refusesFeedsThatAreOlderThanWhatWasSeen) {
    const std::string items = item("2", archive());
    EXPECT_TRUE(read(items, "2").found);
    EXPECT_TRUE(read(items, "1.9").found);
    const auto old = read(items, "2.0.1");
    EXPECT_THAT(old.problem, HasSubstr("older"));
    EXPECT_FALSE(old.found);
    EXPECT_THAT(read("", "2").problem, HasSubstr("older"));
}

} // namespace

} // namespace pallistrom
