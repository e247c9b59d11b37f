// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "shell/StatusMenu.h"

#include "FakePlatform.h"
#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace pallistrom {

namespace {

class NoTarget final : public ActionTarget {
public:
    void performAction(std::string_view /*selector*/, const NSMenuItem* /*sender*/) override {}
};

/// An item in one line: what is on the left of the title, and what is behind it.
std::string line(const NSMenuItem& item) {
    if (item.isSeparator) {
        return "---";
    }
    std::string text;
    if (item.isCheckable) {
        text += item.state == NSControlStateValue::NSControlStateValueOn ? "[x] " : "[ ] ";
    }
    text += item.title;
    text += item.action.empty() ? "" : " -> " + item.action;
    text += item.representedObject.empty() ? "" : "(" + item.representedObject + ")";
    text += item.keyEquivalent.empty() ? "" : " command " + item.keyEquivalent;
    text += item.isEnabled ? "" : " (disabled)";
    text += item.action.empty() || !item.target.expired() ? "" : " (to the responder chain)";
    return text;
}

class StatusMenu : public testing::Test {
protected:
    StatusMenu() { Preferences::registerDefaults(ShortcutLibrary::all); }

    [[nodiscard]] std::vector<std::string> lines(bool trusted,
                                                 std::span<const ShortcutDef> shortcuts) const {
        std::vector<std::string> result;
        for (const NSMenuItem& item : statusMenu(trusted, shortcuts, target)) {
            result.push_back(line(item));
        }
        return result;
    }

    fake::Platform platform;
    std::shared_ptr<NoTarget> target = std::make_shared<NoTarget>();
};

using Lines = std::vector<std::string>;

TEST_F(StatusMenu, readsFromTopToBottom) {
    EXPECT_EQ(lines(true, ShortcutLibrary::all),
              (Lines{"Shortcuts (disabled)",
                     "[x] ⌃W   Delete word -> toggleShortcut:(ctrlW)",
                     "[x] ⌃U   Delete to line start -> toggleShortcut:(ctrlU)",
                     "[ ] ⌃K   Delete to line end -> toggleShortcut:(ctrlK)",
                     "[ ] ⌥D   Delete word forward -> toggleShortcut:(altD)",
                     "---",
                     "Settings… -> showSettings command ,",
                     "Onboarding… -> showOnboarding:",
                     "Check for Updates… -> checkForUpdates",
                     "Report an Issue… -> reportIssue",
                     "---",
                     "Quit Pallistrom -> quit command q"}));
}

TEST_F(StatusMenu, startsWithAWarningWithoutThePermission) {
    Lines expected = lines(true, ShortcutLibrary::all);
    const Lines warning{
        "⚠ Accessibility access needed -> openAccessibility (to the responder chain)", "---"};
    expected.insert(expected.begin(), warning.begin(), warning.end());
    EXPECT_EQ(lines(false, ShortcutLibrary::all), expected);
}

TEST_F(StatusMenu, showsTheSwitchesAsTheyAreStored) {
    Preferences::setEnabled("ctrlW", false);
    Preferences::setEnabled("altD", true);
    const Lines menu = lines(true, ShortcutLibrary::all);
    EXPECT_EQ(menu.at(1), "[ ] ⌃W   Delete word -> toggleShortcut:(ctrlW)");
    EXPECT_EQ(menu.at(4), "[x] ⌥D   Delete word forward -> toggleShortcut:(altD)");
}

TEST_F(StatusMenu, ofAnEmptyCatalogueGoesStraightOnToTheSettings) {
    const Lines menu = lines(true, {});
    EXPECT_EQ(menu.at(0), "Shortcuts (disabled)");
    EXPECT_EQ(menu.at(1), "---");
    EXPECT_EQ(menu.at(2), "Settings… -> showSettings command ,");
}

TEST_F(StatusMenu, isNeverTranslated) {
    for (const NSMenuItem& item : statusMenu(false, ShortcutLibrary::all, target)) {
        platform.localizedStrings[item.title] = "translated";
    }
    for (const std::string& each : lines(false, ShortcutLibrary::all)) {
        EXPECT_EQ(each.find("translated"), std::string::npos) << each;
    }
}

TEST_F(StatusMenu, putsTheWarningSignWithoutAnEmojiSelector) {
    EXPECT_TRUE(statusMenu(false, {}, target).front().title.starts_with("\xE2\x9A\xA0 A"));
}

} // namespace

} // namespace pallistrom
