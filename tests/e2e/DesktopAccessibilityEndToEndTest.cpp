// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "DesktopTest.h"

#include <string>
#include <vector>

namespace pallistrom::e2e {

namespace {

using Lines = std::vector<std::string>;

/// role 'name' states (description)
std::string describe(const Accessible& accessible) {
    std::string line = accessible.role + " '" + accessible.name + '\'';
    if (!accessible.states.empty()) {
        line += ' ' + accessible.states;
    }
    if (!accessible.description.empty()) {
        line += " (" + accessible.description + ')';
    }
    return line;
}

Lines operator+(Lines lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

class DesktopAccessibility : public DesktopTest {
protected:
    /// All that a window tells of but what only holds other things.
    Lines linesOf(const std::string& title) const {
        Lines lines;
        for (const Accessible& accessible : reader->window(title)) {
            if (accessible.role != "filler" && accessible.role != "layered pane") {
                lines.push_back(describe(accessible));
            }
        }
        return lines;
    }

    /// Goes on to a step of the guide.
    void walkTo(const std::string& step) const {
        keys->press("Return");
        EXPECT_EQ(thing(guide, "label", step).name, step);
    }

    const Lines rows{
        "label '⌃W'",
        "label 'Delete word'",
        "label 'Recommended'",
        "label 'Erase the word before the cursor'",
        "check box 'Delete word' checked focusable (Erase the word before the cursor)",
        "label '⌃U'",
        "label 'Delete to line start'",
        "label 'Recommended'",
        "label 'Erase everything to the left of the cursor'",
        ("check box 'Delete to line start' checked focusable (Erase everything to the left of the "
         "cursor)"),
        "label '⌃K'",
        "label 'Delete to line end'",
        "label 'Erase everything to the right of the cursor'",
        "check box 'Delete to line end' focusable (Erase everything to the right of the cursor)",
        "label '⌥D'",
        "label 'Delete word forward'",
        "label 'Erase the word after the cursor (blocks typing ∂)'",
        ("check box 'Delete word forward' focusable (Erase the word after the cursor (blocks "
         "typing ∂))"),
    };
};

TEST_F(DesktopAccessibility, tellsOfEverythingInTheGuide) {
    launch();
    ASSERT_TRUE(windowIsShown(guide)) << log();
    EXPECT_EQ(thing(guide, "push button", "Continue").name, "Continue");
    EXPECT_EQ(
        linesOf(guide),
        (Lines{"frame 'Welcome to Pallistrom'",
               "label 'Welcome to Pallistrom'",
               ("label 'Terminal-style text editing, everywhere on your desktop. Delete words "
                "and lines with the keys your fingers already know.'"),
               "label 'Step 1 of 4'",
               "push button 'Continue' focusable"}));
    walkTo("Step 2 of 4");
    EXPECT_EQ(linesOf(guide),
              (Lines{"frame 'Welcome to Pallistrom'",
                     "label 'Grant Accessibility access'",
                     ("label 'Pallistrom watches for your shortcut keys and turns them into delete "
                      "commands. X11 sessions let it do so without being asked, Wayland sessions "
                      "need your permission — it never logs or sends your keystrokes anywhere.'"),
                     "label 'Accessibility access granted'",
                     "push button 'Open Accessibility Access…' focusable",
                     "push button 'Back' focusable",
                     "label 'Step 2 of 4'",
                     "push button 'Continue' focusable"}));
    walkTo("Step 3 of 4");
    EXPECT_EQ(linesOf(guide),
              (Lines{"frame 'Welcome to Pallistrom'",
                     "label 'Choose your shortcuts'",
                     "label 'You can change these anytime from the system tray.'"} +
               rows +
               Lines{"push button 'Back' focusable",
                     "label 'Step 3 of 4'",
                     "push button 'Continue' focusable"}));
    walkTo("Step 4 of 4");
    EXPECT_EQ(linesOf(guide),
              (Lines{"frame 'Welcome to Pallistrom'",
                     "label 'You're all set'",
                     ("label 'Pallistrom lives in your system tray. Open it anytime to tweak "
                      "shortcuts.'"),
                     "label 'Launch Pallistrom at login'",
                     "check box 'Launch Pallistrom at login' focusable",
                     "push button 'Back' focusable",
                     "label 'Step 4 of 4'",
                     "push button 'Done' focusable"}));
}

TEST_F(DesktopAccessibility, tellsOfEverythingInTheSettings) {
    launchPastTheGuide();
    openSettings();
    const std::string version = std::string{"label 'v"} + PROJECT_VERSION + '\'';
    EXPECT_EQ(linesOf(settingsTitle),
              (Lines{"frame 'Pallistrom Settings'",
                     "label 'Pallistrom'",
                     "label 'Terminal-style editing, everywhere'",
                     "label 'Accessibility access granted'",
                     "panel 'Shortcuts'",
                     "label 'Shortcuts'"} +
               rows +
               Lines{"panel 'General'",
                     "label 'General'",
                     "label 'Launch Pallistrom at login'",
                     "check box 'Launch Pallistrom at login' focusable",
                     "push button 'Replay Onboarding' focusable",
                     version,
                     "push button 'Quit Pallistrom' focusable"}));
}

} // namespace

} // namespace pallistrom::e2e
