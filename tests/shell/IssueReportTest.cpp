// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "shell/IssueReport.h"

#include "FakePlatform.h"

#include <QUrl>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace pallistrom {

namespace {

const std::string start = "mailto:help@example.org?subject=";

std::string linkFor(std::string_view version, NSOperatingSystemVersion system) {
    return issueReportLink({.recipient = "help@example.org",
                            .version = version,
                            .systemName = "macOS",
                            .systemVersion = system})
        .value_or("no link");
}

std::string decoded(std::string_view encoded) {
    return QByteArray::fromPercentEncoding(QByteArray(encoded.data(), std::ssize(encoded)))
        .toStdString();
}

std::string between(const std::string& text, std::string_view from, std::string_view to) {
    const auto begin = text.find(from) + from.size();
    return text.substr(begin, text.find(to, begin) - begin);
}

std::string subjectOf(const std::string& link) {
    return decoded(between(link, "?subject=", "&"));
}

std::string bodyOf(const std::string& link) {
    return decoded(link.substr(link.find("&body=") + 6));
}

TEST(IssueReport, isALinkToTheCharacter) {
    EXPECT_EQ(linkFor("2.0", {.majorVersion = 15, .minorVersion = 1}),
              start + "Pallistrom%202.0%20%E2%80%94%20issue%20report"
                      "&body=Describe%20what%20happened:%0A%0A%0A---%0A"
                      "Please%20keep%20the%20details%20below%20so%20I%20can%20help%20faster:%0A"
                      "App%20version:%202.0%0AmacOS:%2015.1.0");
}

TEST(IssueReport, namesTheVersionsWhereSupportLooksForThem) {
    const std::string link = linkFor("2.0", {.majorVersion = 15, .minorVersion = 1});
    EXPECT_EQ(subjectOf(link), "Pallistrom 2.0 — issue report");
    EXPECT_EQ(bodyOf(link),
              "Describe what happened:\n\n\n---\n"
              "Please keep the details below so I can help faster:\n"
              "App version: 2.0\nmacOS: 15.1.0");
}

TEST(IssueReport, carriesWhatWouldEndAValueOrALink) {
    const std::string version = "1&body=x#y=%41?+ä";
    const std::string link = linkFor(version, {});
    EXPECT_EQ(subjectOf(link), "Pallistrom " + version + " — issue report");
    EXPECT_EQ(std::count(link.begin(), link.end(), '&'), 1);
    EXPECT_EQ(std::count(link.begin(), link.end(), '#'), 0);
}

TEST(IssueReport, isNoLinkToARecipientThatIsNone) {
    EXPECT_EQ(
        issueReportLink(
            {.recipient = "[not a host", .version = "1", .systemName = "x", .systemVersion = {}}),
        std::nullopt);
}

class ReportAnIssue : public testing::Test {
protected:
    [[nodiscard]] std::string opened() const {
        return platform.openedURLs.size() == 1 ? platform.openedURLs.front() : "not opened once";
    }

    fake::Platform platform;
};

TEST_F(ReportAnIssue, opensAMessageToSupport) {
    reportAnIssue();
    EXPECT_TRUE(opened().starts_with("mailto:" + std::string(supportEmail) + "?subject="));
    EXPECT_EQ(subjectOf(opened()), "Pallistrom 1.2 — issue report");
    EXPECT_TRUE(bodyOf(opened()).ends_with("\nApp version: 1.2\nmacOS: 15.1.0"));
}

TEST_F(ReportAnIssue, callsTheSystemByTheNameInTheTableOfTexts) {
    platform.localizedStrings["macOS"] = "Debian GNU/Linux";
    platform.systemVersion = {.majorVersion = 12};
    reportAnIssue();
    EXPECT_TRUE(bodyOf(opened()).ends_with("\nDebian GNU/Linux: 12.0.0"));
}

TEST_F(ReportAnIssue, saysSoWhereTheVersionIsUnknown) {
    platform.infoDictionary.clear();
    reportAnIssue();
    EXPECT_EQ(subjectOf(opened()), "Pallistrom ? — issue report");
}

TEST_F(ReportAnIssue, doesNotMindHavingNoMailProgram) {
    platform.opensURLs = false;
    reportAnIssue();
    EXPECT_EQ(platform.openedURLs.size(), 1U);
    EXPECT_TRUE(platform.log.empty());
}

} // namespace

} // namespace pallistrom
