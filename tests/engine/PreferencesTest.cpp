// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "engine/Preferences.h"

#include "FakePlatform.h"
#include "engine/ShortcutLibrary.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pallistrom {

namespace {

using Values = std::map<std::string, bool, std::less<>>;

class Settings : public testing::Test {
protected:
    fake::Platform platform;
};

TEST_F(Settings, haveTheDefaultsOfTheCatalogueOnAFreshInstallation) {
    Preferences::registerDefaults(ShortcutLibrary::all);
    EXPECT_TRUE(Preferences::isEnabled("ctrlW"));
    EXPECT_TRUE(Preferences::isEnabled("ctrlU"));
    EXPECT_FALSE(Preferences::isEnabled("ctrlK"));
    EXPECT_FALSE(Preferences::isEnabled("altD"));
    EXPECT_FALSE(Preferences::hasCompletedOnboarding());
}

TEST_F(Settings, areRegisteredInOneCallAndNotStored) {
    Preferences::registerDefaults(ShortcutLibrary::all);
    EXPECT_EQ(platform.registrations, 1U);
    EXPECT_EQ(platform.registeredDefaults,
              (Values{{"hasCompletedOnboarding", false},
                      {"shortcut.ctrlW.enabled", true},
                      {"shortcut.ctrlU.enabled", true},
                      {"shortcut.ctrlK.enabled", false},
                      {"shortcut.altD.enabled", false}}));
    EXPECT_TRUE(platform.storedDefaults.empty());
}

TEST_F(Settings, survivesARestartAgainstTheDefault) {
    Preferences::registerDefaults(ShortcutLibrary::all);
    Preferences::setEnabled("ctrlK", true);
    Preferences::setEnabled("ctrlW", false);
    EXPECT_TRUE(Preferences::isEnabled("ctrlK"));
    EXPECT_FALSE(Preferences::isEnabled("ctrlW"));

    platform.restartProcess();
    Preferences::registerDefaults(ShortcutLibrary::all);
    EXPECT_TRUE(Preferences::isEnabled("ctrlK"));
    EXPECT_FALSE(Preferences::isEnabled("ctrlW"));
}

TEST_F(Settings, readFalseBeforeTheDefaultsAreRegistered) {
    for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
        EXPECT_FALSE(Preferences::isEnabled(shortcut.id)) << shortcut.id;
    }
    EXPECT_FALSE(Preferences::hasCompletedOnboarding());
}

TEST_F(Settings, registerOnlyTheGuideForAnEmptyList) {
    Preferences::registerDefaults({});
    EXPECT_EQ(platform.registrations, 1U);
    EXPECT_EQ(platform.registeredDefaults, (Values{{"hasCompletedOnboarding", false}}));
}

TEST_F(Settings, takeTheLaterOfTwoDefaultsWithOneId) {
    const ShortcutDef& on = ShortcutLibrary::all[0];
    const ShortcutDef off{.id = on.id,
                          .title = {},
                          .subtitle = {},
                          .keyLabel = {},
                          .triggerKeyCode = 0,
                          .requiredFlags = 0,
                          .forbiddenFlags = 0,
                          .action = on.action,
                          .defaultEnabled = false,
                          .recommended = false};
    const std::vector<ShortcutDef> shortcuts{on, off};
    Preferences::registerDefaults(shortcuts);
    EXPECT_FALSE(Preferences::isEnabled("ctrlW"));
}

TEST_F(Settings, acceptAnIdOutsideTheCatalogue) {
    Preferences::registerDefaults(ShortcutLibrary::all);
    EXPECT_FALSE(Preferences::isEnabled("altB"));
    Preferences::setEnabled("altB", true);
    EXPECT_TRUE(Preferences::isEnabled("altB"));
    EXPECT_EQ(platform.storedDefaults, (Values{{"shortcut.altB.enabled", true}}));
}

TEST_F(Settings, acceptAnIdOfAnyLength) {
    const std::string id(10000, 'x');
    Preferences::setEnabled(id, true);
    EXPECT_TRUE(Preferences::isEnabled(id));
    EXPECT_EQ(Preferences::key(id), "shortcut." + id + ".enabled");
}

TEST_F(Settings, keepAFinishedGuide) {
    Preferences::registerDefaults(ShortcutLibrary::all);
    Preferences::setHasCompletedOnboarding(true);
    EXPECT_TRUE(Preferences::hasCompletedOnboarding());
    EXPECT_EQ(platform.storedDefaults, (Values{{"hasCompletedOnboarding", true}}));
}

TEST_F(Settings, areReadAnewEachTime) {
    Preferences::registerDefaults(ShortcutLibrary::all);
    EXPECT_TRUE(Preferences::isEnabled("ctrlW"));
    platform.storedDefaults["shortcut.ctrlW.enabled"] = false;
    EXPECT_FALSE(Preferences::isEnabled("ctrlW"));
}

TEST(SettingsKey, usesTheIdCaseForCase) {
    EXPECT_EQ(Preferences::key("altD"), "shortcut.altD.enabled");
    EXPECT_EQ(Preferences::key("ALTd"), "shortcut.ALTd.enabled");
    EXPECT_EQ(Preferences::key(""), "shortcut..enabled");
    EXPECT_EQ(Preferences::key("a b.c"), "shortcut.a b.c.enabled");
    EXPECT_EQ(Preferences::onboardingKey, "hasCompletedOnboarding");
}

} // namespace

} // namespace pallistrom
