// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/UpdateSettings.h"

#include "SigningKey.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace pallistrom {

namespace {

using namespace std::chrono_literals;
using Entries = std::map<std::string, std::string, std::less<>>;

Entries complete() {
    return {{"CFBundleVersion", "12"},
            {"CFBundleShortVersionString", "1.2"},
            {"SUFeedURL", "https://example.invalid/appcast.xml"},
            {"SUPublicEDKey", SigningKey().publicText()}};
}

UpdateSettings read(const Entries& entries) {
    return UpdateSettings::read([&](std::string_view key) {
        const auto found = entries.find(key);
        return found == entries.end() ? std::nullopt : std::optional(found->second);
    });
}

UpdateSettings with(const std::string& key, const std::string& value) {
    Entries entries = complete();
    entries[key] = value;
    return read(entries);
}

TEST(UpdateSettings, areThoseOfTheInformationList) {
    const auto settings = read(complete());
    EXPECT_EQ(settings.problem, "");
    EXPECT_EQ(settings.feed, QUrl(QStringLiteral("https://example.invalid/appcast.xml")));
    EXPECT_EQ(settings.currentVersion, "12");
    EXPECT_EQ(settings.shownVersion, "1.2");
    EXPECT_TRUE(settings.checksByItself);
    EXPECT_EQ(settings.interval, 24h);
}

TEST(UpdateSettings, haveAScheduleThatPackagersChoose) {
    EXPECT_FALSE(with("SUEnableAutomaticChecks", "false").checksByItself);
    EXPECT_TRUE(with("SUEnableAutomaticChecks", "true").checksByItself);
    EXPECT_EQ(with("SUScheduledCheckInterval", "7200").interval, 2h);
    EXPECT_EQ(with("SUScheduledCheckInterval", "60").interval, 1h);
}

TEST(UpdateSettings, needAFeedAndAKey) {
    EXPECT_EQ(with("SUFeedURL", "").problem, "This build has no update feed.");
    EXPECT_EQ(with("SUPublicEDKey", "").problem, "This build has no update feed.");
    EXPECT_EQ(read({}).problem, "This build has no update feed.");
    EXPECT_NE(with("CFBundleVersion", "").problem, "");
}

TEST(UpdateSettings, trustNoOtherAddressAndNoOtherKey) {
    EXPECT_NE(with("SUFeedURL", "http://example.invalid/").problem, "");
    EXPECT_NE(with("SUFeedURL", "file:///etc/passwd").problem, "");
    EXPECT_NE(with("SUFeedURL", "nonsense").problem, "");
    EXPECT_EQ(with("SUFeedURL", "http://127.0.0.1:8080/").problem, "");
    EXPECT_NE(with("SUPublicEDKey", "nonsense").problem, "");
    EXPECT_NE(with("SUPublicEDKey", SigningKey().publicText() + "=").problem, "");
}

} // namespace

} // namespace pallistrom
