// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/UpdateChoice.h"

#include "FeedText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pallistrom {

namespace {

using FeedText::archive;
using FeedText::feed;

std::string item(std::string_view version, std::string_view elements = {}) {
    return FeedText::item(version, std::string(elements) + archive());
}

UpdateSituation usual() {
    return {.check = UpdateCheck::Scheduled,
            .currentVersion = "1.0",
            .systemVersion = "6.1.0-18-amd64",
            .machine = "x86_64",
            .channels = {},
            .skippedVersion = "",
            .now = 1795266000,
            .rollOutGroup = 0,
            .longestArchive = 1000000};
}

UpdateSituation asked() {
    auto situation = usual();
    situation.check = UpdateCheck::Asked;
    return situation;
}

// Returns the version that is offered; empty if none is.
std::string best(const std::string& items, const UpdateSituation& situation = usual()) {
    const auto appcast = Appcast::parse(feed(items));
    EXPECT_EQ(appcast.problem, "");
    const auto* const found = UpdateChoice::best(appcast.items, situation);
    return found == nullptr ? "" : found->version;
}

TEST(UpdateChoice, isTheNewestVersion) {
    EXPECT_EQ(best(item("1.1") + item("1.10") + item("1.9")), "1.10");
    EXPECT_EQ(best(""), "");
}

TEST(UpdateChoice, neverGoesBack) {
    EXPECT_EQ(best(item("1.0")), "");
    EXPECT_EQ(best(item("1.0.0")), "");
    EXPECT_EQ(best(item("0.9") + item("1.0b1")), "");
    EXPECT_EQ(best(item("0.9"), asked()), "");
}

TEST(UpdateChoice, isForThisSystem) {
    const auto forSystem = [](const std::string& system) {
        return best(FeedText::item("2", archive("https://a/", 1, {}, system)));
    };
    EXPECT_EQ(forSystem("linux"), "2");
    EXPECT_EQ(forSystem("linux-x86_64"), "2");
    for (const std::string other : {"", "macos", "windows", "linux-aarch64", "linux-", "linuxx"}) {
        EXPECT_EQ(forSystem(other), "") << other;
    }
}

TEST(UpdateChoice, takesItsOwnOfSeveralArchives) {
    const auto appcast = Appcast::parse(feed(FeedText::item(
        "2",
        archive("https://a/mac", 1, {}, "macos") + archive("https://a/arm", 1, {}, "linux-arm64") +
            archive("https://a/intel", 1, {}, "linux-x86_64"))));
    auto situation = usual();
    EXPECT_EQ(UpdateChoice::archiveFor(appcast.items.at(0), situation)->address, "https://a/intel");
    situation.machine = "aarch64";
    EXPECT_EQ(UpdateChoice::archiveFor(appcast.items.at(0), situation)->address, "https://a/arm");
    situation.machine = "riscv64";
    EXPECT_EQ(UpdateChoice::archiveFor(appcast.items.at(0), situation), nullptr);
}

TEST(UpdateChoice, needsAnArchiveThatCanBeChecked) {
    const auto with = [](std::uint64_t length, const std::string& signature) {
        return best(FeedText::item("2", archive("https://a/", length, signature)));
    };
    EXPECT_EQ(with(1000000, ""), "2");
    EXPECT_EQ(with(0, ""), "");
    EXPECT_EQ(with(1000001, ""), "");
    EXPECT_EQ(with(10'000'000'000, ""), "");
    EXPECT_EQ(with(1, "AAAA"), "");
}

TEST(UpdateChoice, fitsTheSystem) {
    const auto minimum = [](const std::string& version) {
        return best(item(
            "2", "<sparkle:minimumSystemVersion>" + version + "</sparkle:minimumSystemVersion>"));
    };
    const auto maximum = [](const std::string& version) {
        return best(item(
            "2", "<sparkle:maximumSystemVersion>" + version + "</sparkle:maximumSystemVersion>"));
    };
    EXPECT_EQ(minimum("5.15"), "2");
    EXPECT_EQ(minimum("6.1.0"), "2");
    EXPECT_EQ(minimum("6.2"), "");
    EXPECT_EQ(maximum("6.1.0"), "2");
    EXPECT_EQ(maximum("7"), "2");
    EXPECT_EQ(maximum("5.15"), "");
}

TEST(UpdateChoice, isTheNewestThatFits) {
    EXPECT_EQ(best(item("3", "<sparkle:minimumSystemVersion>99</sparkle:minimumSystemVersion>") +
                   item("2")),
              "2");
}

TEST(UpdateChoice, fitsTheHardware) {
    const auto needs = [](const std::string& hardware) {
        return best(item(
            "2", "<sparkle:hardwareRequirements>" + hardware + "</sparkle:hardwareRequirements>"));
    };
    EXPECT_EQ(needs(""), "2");
    EXPECT_EQ(needs("x86_64"), "2");
    EXPECT_EQ(needs("arm64"), "");
    EXPECT_EQ(needs("x86_64, quantum"), "");
}

TEST(UpdateChoice, isInAChannelOfTheUsers) {
    const std::string items = item("3", "<sparkle:channel>beta</sparkle:channel>") + item("2");
    auto situation = usual();
    EXPECT_EQ(best(items, situation), "2");
    situation.channels = {"beta"};
    EXPECT_EQ(best(items, situation), "3");
    situation.channels = {"nightly"};
    EXPECT_EQ(best(items, situation), "2");
}

TEST(UpdateChoice, needsAVersionToStartFrom) {
    const auto from = [](const std::string& version) {
        return best(item(
            "2", "<sparkle:minimumUpdateVersion>" + version + "</sparkle:minimumUpdateVersion>"));
    };
    EXPECT_EQ(from("1.0"), "2");
    EXPECT_EQ(from("1.1"), "");
}

class RollOut : public testing::Test {
protected:
    // As long after it was published.
    [[nodiscard]] static std::string offered(int group,
                                             std::int64_t age,
                                             const std::string& more = {},
                                             UpdateCheck check = UpdateCheck::Scheduled) {
        auto situation = usual();
        situation.check = check;
        situation.rollOutGroup = group;
        situation.now += age;
        return best(item("2",
                         "<pubDate>Sat, 21 Nov 2026 13:00:00 +0000</pubDate>"
                         "<sparkle:phasedRolloutInterval>1000</sparkle:phasedRolloutInterval>" +
                             more),
                    situation);
    }
};

TEST_F(RollOut, goesFromGroupToGroup) {
    EXPECT_EQ(offered(0, 0), "2");
    EXPECT_EQ(offered(0, -1), "");
    for (int group = 1; group < UpdateChoice::rollOutGroups; ++group) {
        EXPECT_EQ(offered(group, group * 1000 - 1), "") << group;
        EXPECT_EQ(offered(group, group * 1000), "2") << group;
    }
}

TEST_F(RollOut, doesNotHoldBackWhoAsks) {
    EXPECT_EQ(offered(6, 0, "", UpdateCheck::Asked), "2");
}

TEST_F(RollOut, doesNotHoldBackWhatIsCritical) {
    EXPECT_EQ(offered(6, 0, "<sparkle:criticalUpdate/>"), "2");
    EXPECT_EQ(offered(6, 0, R"(<sparkle:criticalUpdate sparkle:version="1.1"/>)"), "2");
    EXPECT_EQ(offered(6, 0, R"(<sparkle:criticalUpdate sparkle:version="1.0"/>)"), "");
}

TEST_F(RollOut, hidesTheNewestOnly) {
    auto situation = usual();
    situation.rollOutGroup = 6;
    EXPECT_EQ(best(item("3",
                        "<pubDate>Sat, 21 Nov 2026 13:00:00 +0000</pubDate>"
                        "<sparkle:phasedRolloutInterval>1000</sparkle:phasedRolloutInterval>") +
                       item("2"),
                   situation),
              "2");
}

TEST(UpdateChoice, canCopeWithAnyInterval) {
    auto situation = usual();
    situation.rollOutGroup = 6;
    EXPECT_EQ(best(item("2",
                        "<pubDate>Sat, 21 Nov 2020 13:00:00 +0000</pubDate>"
                        "<sparkle:phasedRolloutInterval>9223372036854775807"
                        "</sparkle:phasedRolloutInterval>"),
                   situation),
              "");
}

class Skipped : public testing::Test {
protected:
    [[nodiscard]] static std::string offered(const std::string& skipped,
                                             const std::string& items,
                                             UpdateCheck check = UpdateCheck::Scheduled) {
        auto situation = usual();
        situation.check = check;
        situation.skippedVersion = skipped;
        return best(items, situation);
    }
};

TEST_F(Skipped, isNotMentionedAgain) {
    EXPECT_EQ(offered("2", item("2")), "");
    EXPECT_EQ(offered("2", item("2.1")), "2.1");
    EXPECT_EQ(offered("2", item("1.5")), "");
}

TEST_F(Skipped, isMentionedToWhoAsks) {
    EXPECT_EQ(offered("2", item("2"), UpdateCheck::Asked), "2");
}

TEST_F(Skipped, isMentionedIfItIsCritical) {
    EXPECT_EQ(offered("2", item("2", "<sparkle:criticalUpdate/>")), "2");
}

TEST_F(Skipped, isABigStepAsAWhole) {
    const auto step = [](const std::string& version, const std::string& more = {}) {
        return item(version,
                    "<sparkle:minimumAutoupdateVersion>2.0"
                    "</sparkle:minimumAutoupdateVersion>" +
                        more);
    };
    EXPECT_EQ(offered("", step("2.1")), "2.1");
    EXPECT_EQ(offered("2.0", step("2.1")), "");
    EXPECT_EQ(offered("1.9", step("2.1")), "2.1");
    const std::string calledBack = "<sparkle:ignoreSkippedUpgradesBelowVersion>2.1"
                                   "</sparkle:ignoreSkippedUpgradesBelowVersion>";
    EXPECT_EQ(offered("2.0", step("2.1", calledBack)), "2.1");
    EXPECT_EQ(offered("2.1", step("2.2", calledBack)), "");
}

TEST(UpdateChoice, isNewsWhereItCannotBeInstalled) {
    const auto isNews = [](const std::string& elements) {
        const auto appcast = Appcast::parse(feed(item("2", elements)));
        return UpdateChoice::isNews(appcast.items.at(0), usual());
    };
    EXPECT_FALSE(isNews(""));
    EXPECT_TRUE(isNews("<sparkle:informationalUpdate/>"));
    const auto some = [&](const std::string& children) {
        return isNews("<sparkle:informationalUpdate>" + children +
                      "</sparkle:informationalUpdate>");
    };
    EXPECT_TRUE(some("<sparkle:version>1.0.0</sparkle:version>"));
    EXPECT_FALSE(some("<sparkle:version>0.9</sparkle:version>"));
    EXPECT_TRUE(some("<sparkle:belowVersion>1.1</sparkle:belowVersion>"));
    EXPECT_FALSE(some("<sparkle:belowVersion>1.0</sparkle:belowVersion>"));
}

TEST(UpdateChoice, needsNoArchiveOfNewsButALink) {
    EXPECT_EQ(best(FeedText::item("2", "<link>https://a/</link>")), "2");
    EXPECT_EQ(best(FeedText::item("2")), "");
    const std::string news = "<sparkle:informationalUpdate/><link>https://a/</link>";
    EXPECT_EQ(best(FeedText::item("2", news + archive("https://a/", 0))), "2");
    EXPECT_EQ(best(FeedText::item("2", news + archive("https://a/", 1, {}, "macos"))), "");
}

TEST(UpdateChoice, remembersTheNewestVersionForThisSystem) {
    const auto newest = [](const std::string& items) {
        return UpdateChoice::newestVersion(Appcast::parse(feed(items)).items, usual());
    };
    EXPECT_EQ(newest(item("1") + item("3", "<sparkle:channel>beta</sparkle:channel>") + item("2")),
              "3");
    EXPECT_EQ(newest(FeedText::item("9", archive("https://a/", 1, {}, "macos")) + item("2")), "2");
    EXPECT_EQ(newest(""), "");
}

} // namespace

} // namespace pallistrom
