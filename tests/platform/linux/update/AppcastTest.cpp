// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/Appcast.h"

#include "FeedText.h"

#include <gmock/gmock.h>

#include <string>

namespace pallistrom {

namespace {

using FeedText::archive;
using FeedText::feed;
using FeedText::item;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

AppcastItem only(const std::string& elements) {
    const auto appcast = Appcast::parse(feed(item("2", elements)));
    EXPECT_EQ(appcast.problem, "");
    EXPECT_THAT(appcast.items, SizeIs(1)) << elements;
    return appcast.items.empty() ? AppcastItem() : appcast.items.front();
}

TEST(Appcast, saysEverythingOfAVersion) {
    const auto read = only(R"(
        <sparkle:shortVersionString> 2.0 </sparkle:shortVersionString>
        <link>https://example.invalid/2</link>
        <description><![CDATA[<p>Better.</p>]]></description>
        <pubDate>Sat, 21 Nov 2026 14:00:00 +0100</pubDate>
        <sparkle:channel>beta</sparkle:channel>
        <sparkle:minimumSystemVersion>5.10</sparkle:minimumSystemVersion>
        <sparkle:maximumSystemVersion>7</sparkle:maximumSystemVersion>
        <sparkle:hardwareRequirements>arm64, fast</sparkle:hardwareRequirements>
        <sparkle:minimumUpdateVersion>0.5</sparkle:minimumUpdateVersion>
        <sparkle:minimumAutoupdateVersion>1</sparkle:minimumAutoupdateVersion>
        <sparkle:ignoreSkippedUpgradesBelowVersion>1.5</sparkle:ignoreSkippedUpgradesBelowVersion>
        <sparkle:phasedRolloutInterval>86400</sparkle:phasedRolloutInterval>
        <sparkle:criticalUpdate sparkle:version="1.1"/>)" +
                           archive("https://example.invalid/2.tar.gz", 77));
    EXPECT_EQ(read.version, "2");
    EXPECT_EQ(read.shortVersion, "2.0");
    EXPECT_EQ(read.link, "https://example.invalid/2");
    EXPECT_EQ(read.notes, "Better.");
    EXPECT_EQ(read.published, 1795266000);
    EXPECT_EQ(read.channel, "beta");
    EXPECT_EQ(read.minimumSystemVersion, "5.10");
    EXPECT_EQ(read.maximumSystemVersion, "7");
    EXPECT_THAT(read.hardware, ElementsAre("arm64", "fast"));
    EXPECT_EQ(read.minimumUpdateVersion, "0.5");
    EXPECT_EQ(read.minimumAutoupdateVersion, "1");
    EXPECT_EQ(read.unskippedBelow, "1.5");
    EXPECT_EQ(read.rollOutInterval, 86400);
    ASSERT_TRUE(read.urgency);
    EXPECT_EQ(read.urgency->below, "1.1");
    EXPECT_FALSE(read.news);
    ASSERT_THAT(read.archives, SizeIs(1));
    EXPECT_EQ(read.archives[0].address, "https://example.invalid/2.tar.gz");
    EXPECT_EQ(read.archives[0].length, 77U);
    EXPECT_EQ(read.archives[0].system, "linux");
    EXPECT_TRUE(read.archives[0].signature);
}

TEST(Appcast, needsNothingButAVersion) {
    const auto read = only("");
    EXPECT_EQ(read.shortVersion, "2");
    EXPECT_EQ(read.published, std::nullopt);
    EXPECT_EQ(read.rollOutInterval, 0);
    EXPECT_THAT(read.archives, IsEmpty());
}

TEST(Appcast, findsTheVersionInItsOldPlace) {
    const auto appcast = Appcast::parse(feed(
        R"(<item><enclosure sparkle:version="3" sparkle:shortVersionString="3.0" url="x"/></item>)"));
    ASSERT_THAT(appcast.items, SizeIs(1));
    EXPECT_EQ(appcast.items[0].version, "3");
    EXPECT_EQ(appcast.items[0].shortVersion, "3.0");
}

TEST(Appcast, knowsTheOldFormOfUrgency) {
    const auto read = only("<sparkle:tags><sparkle:criticalUpdate/></sparkle:tags>");
    ASSERT_TRUE(read.urgency);
    EXPECT_EQ(read.urgency->below, "");
}

TEST(Appcast, knowsNews) {
    const auto all = only("<sparkle:informationalUpdate/>");
    ASSERT_TRUE(all.news);
    EXPECT_THAT(all.news->versions, IsEmpty());
    const auto some = only("<sparkle:informationalUpdate><sparkle:version>1.1</sparkle:version>"
                           "<sparkle:version>1.2</sparkle:version>"
                           "<sparkle:belowVersion>1</sparkle:belowVersion>"
                           "</sparkle:informationalUpdate>");
    ASSERT_TRUE(some.news);
    EXPECT_THAT(some.news->versions, ElementsAre("1.1", "1.2"));
    EXPECT_EQ(some.news->below, "1");
}

TEST(Appcast, hasAnotherLinkIfThereIsNone) {
    EXPECT_EQ(only("<sparkle:releaseNotesLink>https://a/</sparkle:releaseNotesLink>").link,
              "https://a/");
    EXPECT_EQ(only("<sparkle:releaseNotesLink>https://a/</sparkle:releaseNotesLink>"
                   "<sparkle:fullReleaseNotesLink>https://b/</sparkle:fullReleaseNotesLink>")
                  .link,
              "https://b/");
}

TEST(Appcast, understandsDatesOfEitherForm) {
    for (const std::string date : {"Sat, 21 Nov 2026 13:00:00 +0000",
                                   "Sat, 21 Nov 2026 13:00:00 GMT",
                                   "21 Nov 2026 05:00:00 -0800"}) {
        EXPECT_EQ(only("<pubDate>" + date + "</pubDate>").published, 1795266000) << date;
    }
    EXPECT_EQ(only("<pubDate>yesterday</pubDate>").published, std::nullopt);
}

TEST(Appcast, believesNoNumberThatIsNone) {
    for (const std::string number : {"", "-1", "x", "1e3", "99999999999999999999"}) {
        EXPECT_EQ(
            only("<sparkle:phasedRolloutInterval>" + number + "</sparkle:phasedRolloutInterval>")
                .rollOutInterval,
            0);
        EXPECT_EQ(only("<enclosure url='x' length='" + number + "'/>").archives.at(0).length, 0U);
    }
    EXPECT_FALSE(only("<enclosure url='x' length='1' sparkle:edSignature='pXAx!!=='/>")
                     .archives.at(0)
                     .signature);
}

TEST(Appcast, leavesOutWhatHasNoVersion) {
    const auto appcast = Appcast::parse(
        feed("<item><title>2</title></item>" + item("") + item("none") + item("1 2") + item("3")));
    ASSERT_THAT(appcast.items, SizeIs(1));
    EXPECT_EQ(appcast.items[0].version, "3");
}

TEST(Appcast, skipsWhatItDoesNotKnow) {
    const auto read =
        only("<sparkle:deltas><enclosure url='x' sparkle:version='9'/></sparkle:deltas>"
             "<later><sparkle:channel>x</sparkle:channel></later>"
             "<x:version xmlns:x='urn:other'>9</x:version><version>9</version>"
             "<sparkle:channel>be<b>xx</b>ta</sparkle:channel>" +
             archive() + "<!-- a comment --><?and an instruction?>");
    EXPECT_EQ(read.version, "2");
    EXPECT_EQ(read.channel, "beta");
    EXPECT_THAT(read.archives, SizeIs(1));
}

TEST(Appcast, takesTheFirstOfWhatIsSaidTwice) {
    EXPECT_EQ(
        only("<sparkle:channel>a</sparkle:channel><sparkle:channel>b</sparkle:channel>").channel,
        "a");
}

TEST(Appcast, keepsTheOrderOfItsItems) {
    const auto appcast = Appcast::parse(feed(item("1") + item("3") + item("2")));
    ASSERT_THAT(appcast.items, SizeIs(3));
    EXPECT_EQ(appcast.items[1].version, "3");
}

TEST(Appcast, refusesWhatIsNotWellFormed) {
    const std::string good = feed(item("2"));
    ASSERT_EQ(Appcast::parse(good).problem, "");
    for (const std::string& bad : {std::string(),
                                   std::string("nonsense"),
                                   std::string("<rss>"),
                                   good.substr(0, good.size() - 1),
                                   good + "<rss/>",
                                   feed("<item>&unknown;</item>"),
                                   feed("<item><x:y/></item>"),
                                   feed("<item></rss>"),
                                   std::string("<html><body/></html>"),
                                   feed(item("2") + std::string(1, '\0'))}) {
        const auto appcast = Appcast::parse(bad);
        EXPECT_NE(appcast.problem, "") << bad;
        EXPECT_THAT(appcast.items, IsEmpty()) << bad;
    }
}

TEST(Appcast, refusesDocumentTypes) {
    std::string bomb = "<!DOCTYPE rss [<!ENTITY a \"ha\">";
    for (char c = 'b'; c < 'z'; ++c) {
        const std::string before(1, static_cast<char>(c - 1));
        std::string entity = "<!ENTITY " + std::string(1, c) + " \"";
        for (int i = 0; i < 10; ++i) {
            entity.append("&").append(before).append(";");
        }
        bomb += entity + "\">";
    }
    bomb += "]>";
    std::string text = feed(item("2", "<description>&y;</description>"));
    text.insert(text.find("<rss"), bomb);
    EXPECT_THAT(Appcast::parse(text).problem, HasSubstr("document type"));
    text = feed(item("2"));
    text.insert(text.find("<rss"), "<!DOCTYPE rss SYSTEM \"file:///etc/passwd\">");
    EXPECT_THAT(Appcast::parse(text).problem, HasSubstr("document type"));
}

TEST(Appcast, isInUtf8WhateverItSays) {
    for (const std::string bytes :
         {"\xFF", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xC3"}) {
        EXPECT_THAT(
            Appcast::parse(feed(item("2", "<description>" + bytes + "</description>"))).problem,
            HasSubstr("UTF-8"));
    }
    std::string text = feed(item("2", "<description>ü</description>"));
    text.replace(text.find("utf-8"), 5, "iso-8859-1");
    const auto appcast = Appcast::parse(text);
    ASSERT_THAT(appcast.items, SizeIs(1));
    EXPECT_EQ(appcast.items[0].notes, "ü");
}

TEST(Appcast, isBoundedInSize) {
    const std::string text = feed(item("2"));
    EXPECT_EQ(Appcast::parse(text, {.bytes = text.size()}).problem, "");
    EXPECT_THAT(Appcast::parse(text, {.bytes = text.size() - 1}).problem, HasSubstr("too large"));
    EXPECT_THAT(Appcast::parse(feed(std::string(1 << 20, ' '))).problem, HasSubstr("too large"));
}

TEST(Appcast, isBoundedInItems) {
    const std::string text = feed(item("2") + "</channel><channel>" + item("3"));
    EXPECT_THAT(Appcast::parse(text, {.items = 2}).items, SizeIs(2));
    EXPECT_THAT(Appcast::parse(text, {.items = 1}).problem, HasSubstr("too many items"));
}

TEST(Appcast, isBoundedInDepth) {
    std::string deep;
    for (int i = 0; i < 13; ++i) {
        deep = "<a>" + deep + "</a>";
    }
    EXPECT_EQ(Appcast::parse(feed(item("2", deep))).problem, "");
    deep = "<a>" + deep + "</a>";
    EXPECT_THAT(Appcast::parse(feed(item("2", deep))).problem, HasSubstr("within each other"));
    deep = "<sparkle:channel>" + deep + "</sparkle:channel>";
    EXPECT_THAT(Appcast::parse(feed(item("2", deep))).problem, HasSubstr("within each other"));
}

TEST(Appcast, takesTagsForMarkupUnlessTheNotesAreSaidToBePlain) {
    const std::string notes = "One &lt;b&gt;two&lt;/b&gt;\nthree</description>";
    EXPECT_EQ(only("<description>" + notes).notes, "One two three");
    EXPECT_EQ(only("<description sparkle:format='html'>" + notes).notes, "One two three");
    EXPECT_EQ(only("<description sparkle:format='plain-text'>" + notes).notes,
              "One <b>two</b>\nthree");
}

TEST(Appcast, isBoundedInItsTexts) {
    const std::string longText(3000, 'x');
    EXPECT_THAT(Appcast::parse(feed(item("2", "<link>" + longText + "</link>") + item("1"))).items,
                SizeIs(1));
    EXPECT_THAT(
        Appcast::parse(feed(item("2", "<enclosure url='" + longText + "'/>") + item("1"))).items,
        SizeIs(1));
    EXPECT_EQ(only("<description>" + std::string(100000, 'x') + "</description>").notes.size(),
              32768U);
}

} // namespace

} // namespace pallistrom
