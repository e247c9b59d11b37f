// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/FeedSignature.h"

#include "SigningKey.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace pallistrom {

namespace {

const std::string feed = "<?xml version=\"1.0\"?>\n<rss><channel/></rss>";

std::optional<std::string_view> signedPart(std::string_view text) {
    return FeedSignature::signedPart(text, SigningKey().publicKey());
}

TEST(FeedSignature, givesThePartThatIsSigned) {
    const SigningKey key;
    EXPECT_EQ(signedPart(key.signedFeed(feed)), feed);
    EXPECT_EQ(signedPart(key.signedFeed(feed + "\n")), feed + "\n");
}

TEST(FeedSignature, mayHaveWhiteSpaceAroundIt) {
    const SigningKey key;
    const std::string comment = SigningKey::comment(key.signature(feed), feed.size());
    EXPECT_EQ(signedPart(feed + "\n" + comment), feed);
    EXPECT_EQ(signedPart(feed + comment + "\r\n\r\n"), feed);
    EXPECT_EQ(signedPart(feed + "<!-- sparkle-signatures:\r\n edSignature:" + key.signature(feed) +
                         "\r\nlength:  " + std::to_string(feed.size()) + "\r\n\r\n-->"),
              feed);
}

TEST(FeedSignature, mayBeMentionedInTheFeed) {
    const SigningKey key;
    const std::string talkative = "<!-- sparkle-signatures: see below -->" + feed;
    EXPECT_EQ(signedPart(key.signedFeed(talkative)), talkative);
}

TEST(FeedSignature, isNeeded) {
    EXPECT_EQ(signedPart(""), std::nullopt);
    EXPECT_EQ(signedPart(feed), std::nullopt);
    EXPECT_EQ(signedPart(feed + "<!-- sparkle-signatures:"), std::nullopt);
    EXPECT_EQ(signedPart(feed + "<!-- sparkle-signatures:\n-->"), std::nullopt);
    EXPECT_EQ(signedPart(feed + "<!-- sparkle-signatures:-->"), std::nullopt);
}

TEST(FeedSignature, isOfTheRightKey) {
    EXPECT_EQ(signedPart(SigningKey(2).signedFeed(feed)), std::nullopt);
}

TEST(FeedSignature, noticesEachChangedByte) {
    const std::string good = SigningKey().signedFeed(feed);
    for (std::size_t i = 0; i < feed.size(); ++i) {
        std::string bad = good;
        bad[i] ^= 1;
        EXPECT_EQ(signedPart(bad), std::nullopt) << i;
    }
}

TEST(FeedSignature, leavesNothingBetweenThatIsNotSigned) {
    const SigningKey key;
    const std::string comment = SigningKey::comment(key.signature(feed), feed.size());
    EXPECT_EQ(signedPart(feed + "<item/>" + comment), std::nullopt);
    EXPECT_EQ(signedPart(feed + comment + "<item/>"), std::nullopt);
    EXPECT_EQ(signedPart(feed + comment + comment), std::nullopt);
    EXPECT_EQ(signedPart(feed + SigningKey::comment(key.signature(feed), feed.size()) + "-->"),
              std::nullopt);
}

TEST(FeedSignature, saysALengthThatFits) {
    const SigningKey key;
    const auto withLength = [&](const std::string& length) {
        return feed + "<!-- sparkle-signatures:\nedSignature: " + key.signature(feed) +
               "\nlength: " + length + "\n-->";
    };
    ASSERT_EQ(signedPart(withLength(std::to_string(feed.size()))), feed);
    for (const std::string length :
         {"", "0", "-1", "1000", "99999999999999999999999", "0x2d", "4 5"}) {
        EXPECT_EQ(signedPart(withLength(length)), std::nullopt) << length;
    }
}

TEST(FeedSignature, saysEverythingOnce) {
    const SigningKey key;
    const std::string signature = "edSignature: " + key.signature(feed) + "\n";
    const std::string length = "length: " + std::to_string(feed.size()) + "\n";
    const auto with = [&](const std::string& lines) {
        return feed + "<!-- sparkle-signatures:\n" + lines + "-->";
    };
    ASSERT_EQ(signedPart(with(signature + length)), feed);
    EXPECT_EQ(signedPart(with("other: field\n" + length + signature)), feed);
    EXPECT_EQ(signedPart(with(signature)), std::nullopt);
    EXPECT_EQ(signedPart(with(length)), std::nullopt);
    EXPECT_EQ(signedPart(with(signature + length + length)), std::nullopt);
    EXPECT_EQ(signedPart(with(signature + signature + length)), std::nullopt);
    EXPECT_EQ(signedPart(with(signature + length + "and more\n")), std::nullopt);
}

} // namespace

} // namespace pallistrom
