// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/openAccessibilitySettings.h"

#include "ViewTest.h"

#include <QUrl>

namespace pallistrom {

namespace {

using OpenAccessibilitySettings = ViewTest;

TEST_F(OpenAccessibilitySettings, asksTheWorkspaceForTheSystemsPage) {
    openAccessibilitySettings();
    ASSERT_EQ(platform.openedURLs.size(), 1U);
    EXPECT_EQ(platform.openedURLs.front(),
              "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility");
    EXPECT_EQ(platform.openedURLs.front().size(), 77U);
    EXPECT_TRUE(
        QUrl(QString::fromStdString(platform.openedURLs.front()), QUrl::StrictMode).isValid());
}

TEST_F(OpenAccessibilitySettings, asksTwiceForTwoCallsAndNeverTheUserOrTheState) {
    setTrusted(false);
    openAccessibilitySettings();
    openAccessibilitySettings();
    EXPECT_EQ(platform.openedURLs.size(), 2U);
    EXPECT_TRUE(platform.trustPrompts.empty());
    EXPECT_FALSE(state.isTrusted());
}

TEST_F(OpenAccessibilitySettings, saysNothingWhereNobodyOpensIt) {
    platform.opensURLs = false;
    openAccessibilitySettings();
    EXPECT_EQ(platform.openedURLs.size(), 1U);
    EXPECT_TRUE(platform.log.empty());
}

} // namespace

} // namespace pallistrom
