// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/bundle/WindowTexts.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

namespace pallistrom {

namespace {

// All texts of the windows that speak of the system. No comma is missing: some take two lines.
// NOLINTNEXTLINE(bugprone-suspicious-missing-comma)
constexpr std::array<std::string_view, 6> texts{
    "Terminal-style text editing, everywhere on your Mac.\nDelete words and lines with the keys "
    "your fingers already know.",
    "Pallistrom watches for your shortcut keys and turns them into delete commands. macOS requires "
    "Accessibility permission for this — it never logs or sends your keystrokes anywhere.",
    "Open Accessibility Settings…",
    "Toggle “Pallistrom” on in the list, then come back here.",
    "You can change these anytime from the menu bar.",
    "Pallistrom lives in your menu bar. Open it anytime to tweak shortcuts.",
};

TEST(WindowTexts, speakOfLinuxWhereTheySpokeOfTheMac) {
    for (const std::string_view key : texts) {
        const std::string text = WindowTexts::localized(key, "Debian");
        EXPECT_NE(text, key);
        for (const std::string_view word :
             {"Mac", "macOS", "menu bar", "Settings", "in the list"}) {
            EXPECT_EQ(text.find(word), std::string::npos) << text;
        }
    }
}

TEST(WindowTexts, areNotMuchLongerThanTheyWere) {
    for (const std::string_view key : texts) {
        EXPECT_LE(WindowTexts::localized(key, "").size(), key.size() * 4 / 3) << key;
    }
}

TEST(WindowTexts, areTheirKeysOtherwise) {
    for (const std::string_view key :
         {"Continue", "Grant Accessibility access", "Open Settings…", "", "macOs"}) {
        EXPECT_EQ(WindowTexts::localized(key, "Debian"), key);
    }
    EXPECT_EQ(WindowTexts::localized("macOS", "Debian"), "Debian");
}

} // namespace

} // namespace pallistrom
