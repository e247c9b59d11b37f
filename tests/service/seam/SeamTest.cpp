// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "engine/EventTapController.h"
#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"
#include "platform/AccessibilityTrust.h"
#include "service/seam/FilteredKeys.h"
#include "service/seam/SwitchDefaults.h"

#include <gtest/gtest.h>

#include <utility>

namespace pallistrom {

namespace {

class FakeKeys final : public FilteredKeys {
public:
    FakeKeys() { current() = this; }

    FakeKeys(const FakeKeys&) = delete;
    FakeKeys& operator=(const FakeKeys&) = delete;

    ~FakeKeys() override { current() = nullptr; }

    [[nodiscard]] bool mayBeFiltered() const override { return isAllowed; }

    void setFilter(KeyFilter* given) override { filter = given; }

    bool isAllowed = false;
    KeyFilter* filter = nullptr;
};

TEST(ServiceTrust, isWhetherKeysMayBeFiltered) {
    EXPECT_FALSE(AXIsProcessTrusted()) << "there are none";
    FakeKeys keys;
    EXPECT_FALSE(AXIsProcessTrusted());
    keys.isAllowed = true;
    EXPECT_TRUE(AXIsProcessTrusted());
    EXPECT_TRUE(AXIsProcessTrustedWithOptions({{kAXTrustedCheckOptionPrompt, true}}));
}

TEST(ServiceTap, givesItsFilterToTheKeyboardsOnceItMay) {
    FakeKeys keys;
    EventTapController controller(ShortcutLibrary::all);
    controller.ensureRunning();
    EXPECT_FALSE(controller.isActive());
    EXPECT_EQ(keys.filter, nullptr);
    keys.isAllowed = true;
    controller.ensureRunning();
    EXPECT_TRUE(controller.isActive());
    EXPECT_NE(keys.filter, nullptr);
}

TEST(ServiceTap, takesItBackWhenItIsSwitchedOff) {
    FakeKeys keys;
    keys.isAllowed = true;
    const CFMachPortRef port = CGEventTapCreate(kCGSessionEventTap,
                                                kCGHeadInsertEventTap,
                                                kCGEventTapOptionDefault,
                                                CGEventMaskBit(kCGEventKeyDown),
                                                nullptr,
                                                nullptr,
                                                {});
    ASSERT_TRUE(port);
    CGEventTapEnable(port, true);
    EXPECT_NE(keys.filter, nullptr);
    CGEventTapEnable(port, false);
    EXPECT_FALSE(CGEventTapIsEnabled(port));
    EXPECT_EQ(keys.filter, nullptr);
}

TEST(SwitchDefaults, readWhatWasRegisteredUntilToldOtherwise) {
    SwitchDefaults defaults;
    defaults.registerDefaults({{"a", true}, {"b", false}});
    EXPECT_TRUE(defaults.boolForKey("a"));
    EXPECT_FALSE(defaults.boolForKey("b"));
    defaults.setBoolForKey(false, "a");
    EXPECT_FALSE(defaults.boolForKey("a"));
    defaults.registerDefaults({{"a", true}});
    EXPECT_FALSE(defaults.boolForKey("a")) << "what was said outweighs what was registered";
}

TEST(SwitchDefaults, storeNothingThatWasNotRegistered) {
    SwitchDefaults defaults;
    defaults.setBoolForKey(true, "unknown");
    EXPECT_FALSE(defaults.boolForKey("unknown"));
}

TEST(SwitchDefaults, areTheSwitchesOfTheShortcuts) {
    Preferences::registerDefaults(ShortcutLibrary::all);
    for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
        EXPECT_EQ(Preferences::isEnabled(shortcut.id), shortcut.defaultEnabled) << shortcut.id;
        Preferences::setEnabled(shortcut.id, !shortcut.defaultEnabled);
        EXPECT_NE(Preferences::isEnabled(shortcut.id), shortcut.defaultEnabled) << shortcut.id;
        Preferences::setEnabled(shortcut.id, shortcut.defaultEnabled);
    }
}

} // namespace

} // namespace pallistrom
