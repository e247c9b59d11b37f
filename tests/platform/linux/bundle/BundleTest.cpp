// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/Bundle.h"

#include "platform/ProcessInfo.h"
#include "platform/linux/system/OsRelease.h"

#include <gtest/gtest.h>

namespace pallistrom {

namespace {

TEST(Bundle, hasTheVersionOfThisBuild) {
    EXPECT_EQ(objectForInfoDictionaryKey(CFBundleShortVersionString), PROJECT_VERSION);
    EXPECT_EQ(objectForInfoDictionaryKey("CFBundleName"), "Pallistrom");
    EXPECT_EQ(objectForInfoDictionaryKey("none"), std::nullopt);
}

TEST(Bundle, hasTheSettingsOfTheUpdateFeed) {
    EXPECT_TRUE(objectForInfoDictionaryKey("SUFeedURL"));
    EXPECT_TRUE(objectForInfoDictionaryKey("SUPublicEDKey"));
}

TEST(Bundle, callsTheSystemByItsOwnName) {
    EXPECT_EQ(NSLocalizedString("macOS"), OsRelease::ofSystem().name);
    EXPECT_EQ(NSLocalizedString("You're all set"), "You're all set");
}

TEST(ProcessInfo, hasTheVersionOfTheSystem) {
    const auto expected = OsRelease::ofSystem().versionNumbers();
    const auto version = operatingSystemVersion();
    EXPECT_EQ(version.majorVersion, expected.majorVersion);
    EXPECT_EQ(version.minorVersion, expected.minorVersion);
    EXPECT_EQ(version.patchVersion, expected.patchVersion);
}

} // namespace

} // namespace pallistrom
