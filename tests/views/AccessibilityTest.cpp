// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "AccessibleTree.h"
#include "OnboardingTest.h"
#include "engine/ShortcutLibrary.h"
#include "views/LoginToggle.h"
#include "views/SettingsView.h"
#include "views/controls/FocusRing.h"
#include "views/controls/Switch.h"

#include <QAccessible>
#include <QApplication>
#include <QTest>

namespace pallistrom {

namespace {

using Lines = std::vector<std::string>;

class AccessibilityTest : public OnboardingTest {
protected:
    /// Goes once around with Tab. Returns the names of what gets the focus.
    static Lines tabOrder(QWidget& window) {
        Lines names;
        QWidget* const first = QApplication::focusWidget();
        QWidget* current = first;
        do {
            names.push_back(QAccessible::queryAccessibleInterface(current)
                                ->text(QAccessible::Name)
                                .toStdString());
            EXPECT_TRUE(current->isVisible());
            QTest::keyClick(current, Qt::Key_Tab);
            current = QApplication::focusWidget();
            EXPECT_TRUE(only<FocusRing>(window).isVisible());
        } while (current != first && names.size() < 20);
        return names;
    }

    /// Returns what is told of the rows of the shortcuts.
    static Lines rows() {
        Lines lines;
        for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
            const auto text = [](std::string_view words) {
                return "text '" + std::string(words) + "'";
            };
            lines.push_back(text(shortcut.keyLabel));
            lines.push_back(text(shortcut.title));
            if (shortcut.recommended) {
                lines.push_back(text("Recommended"));
            }
            lines.push_back(text(shortcut.subtitle));
            std::string control = "check box '";
            control += shortcut.title;
            control += shortcut.defaultEnabled ? "' on" : "' off";
            control += " focusable (";
            control += shortcut.subtitle;
            control += ")";
            lines.push_back(control);
        }
        return lines;
    }
};

Lines operator+(Lines lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

TEST_F(AccessibilityTest, tellsOfTheWelcome) {
    const std::string greeting = "Terminal-style text editing, everywhere on your Mac.\n"
                                 "Delete words and lines with the keys your fingers already know.";
    EXPECT_EQ(accessibleTree(open()),
              (Lines{"text 'Welcome to Pallistrom'",
                     "text '" + greeting + "'",
                     "text 'Step 1 of 4'",
                     "button 'Continue' focusable"}));
}

TEST_F(AccessibilityTest, tellsOfThePermission) {
    const std::string reason =
        "Pallistrom watches for your shortcut keys and turns them into delete commands. macOS "
        "requires Accessibility permission for this — it never logs or sends your keystrokes "
        "anywhere.";
    openAt(1);
    setTrusted(false);
    EXPECT_EQ(accessibleTree(*view),
              (Lines{"text 'Grant Accessibility access'",
                     "text '" + reason + "'",
                     "text 'Waiting for Accessibility access'",
                     "button 'Open Accessibility Settings…' focusable",
                     "text 'Toggle “Pallistrom” on in the list, then come back here.'",
                     "button 'Back' focusable",
                     "text 'Step 2 of 4'",
                     "button 'Continue' focusable"}));
}

TEST_F(AccessibilityTest, tellsOfTheShortcuts) {
    EXPECT_EQ(
        accessibleTree(openAt(2)),
        (Lines{"text 'Choose your shortcuts'",
               "text 'You can change these anytime from the menu bar.'"} +
         rows() +
         Lines{"button 'Back' focusable", "text 'Step 3 of 4'", "button 'Continue' focusable"}));
}

TEST_F(AccessibilityTest, tellsOfTheFinish) {
    const std::string text =
        "Pallistrom lives in your menu bar. Open it anytime to tweak shortcuts.";
    EXPECT_EQ(accessibleTree(openAt(3)),
              (Lines{"text 'You're all set'",
                     "text '" + text + "'",
                     "text 'Launch Pallistrom at login'",
                     "check box 'Launch Pallistrom at login' off focusable",
                     "button 'Back' focusable",
                     "text 'Step 4 of 4'",
                     "button 'Done' focusable"}));
}

TEST_F(AccessibilityTest, tellsOfTheSettings) {
    SettingsView settings(
        state, [] {}, [] {});
    show(settings);
    setTrusted(false);
    EXPECT_EQ(accessibleTree(settings),
              (Lines{"text 'Pallistrom'",
                     "text 'Terminal-style editing, everywhere'",
                     "text 'Waiting for Accessibility access'",
                     "button 'Open Settings…' focusable",
                     "group 'Shortcuts'",
                     "text 'Shortcuts'"} +
               rows() +
               Lines{"group 'General'",
                     "text 'General'",
                     "text 'Launch Pallistrom at login'",
                     "check box 'Launch Pallistrom at login' off focusable",
                     "button 'Replay Onboarding' focusable",
                     "text 'v1.2'",
                     "button 'Quit Pallistrom' focusable"}));
}

TEST_F(AccessibilityTest, goesThroughTheGuideWithTabAsOneReadsIt) {
    openAt(1);
    primary().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(tabOrder(*view), (Lines{"Continue", "Open Accessibility Settings…", "Back"}));
    openAt(2);
    primary().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(tabOrder(*view),
              (Lines{"Continue",
                     "Delete word",
                     "Delete to line start",
                     "Delete to line end",
                     "Delete word forward",
                     "Back"}));
    openAt(3);
    primary().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(tabOrder(*view), (Lines{"Done", "Launch Pallistrom at login", "Back"}));
}

TEST_F(AccessibilityTest, goesThroughTheSettingsWithTabAsOneReadsThem) {
    SettingsView settings(
        state, [] {}, [] {});
    show(settings);
    setTrusted(false);
    showing<PushButton>(settings, "Open Settings…").setFocus(Qt::TabFocusReason);
    EXPECT_EQ(tabOrder(settings),
              (Lines{"Open Settings…",
                     "Delete word",
                     "Delete to line start",
                     "Delete to line end",
                     "Delete word forward",
                     "Launch Pallistrom at login",
                     "Replay Onboarding",
                     "Quit Pallistrom"}));
}

TEST_F(AccessibilityTest, keepsTheFocusInTheGuideWhenBackGoesAway) {
    openAt(1);
    back().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&back(), Qt::Key_Space);
    EXPECT_EQ(view->step(), 0);
    EXPECT_EQ(QApplication::focusWidget(), &primary());
}

TEST_F(AccessibilityTest, switchesWithTheActionOfAssistiveTechnology) {
    openAt(3);
    Switch& control = only<LoginToggle>(*view).control();
    auto* const action = QAccessible::queryAccessibleInterface(&control)->actionInterface();
    ASSERT_NE(action, nullptr);
    action->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(control.isChecked());
    EXPECT_TRUE(state.launchAtLogin());
}

} // namespace

} // namespace pallistrom
