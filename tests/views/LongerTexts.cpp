// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "LongerTexts.h"

#include "FakePlatform.h"

#include <string>

namespace pallistrom {

namespace {

constexpr std::string_view greeting =
    "Terminal-style text editing, everywhere on your Mac.\n"
    "Delete words and lines with the keys your fingers already know.";
constexpr std::string_view reason =
    "Pallistrom watches for your shortcut keys and turns them into delete commands. macOS requires "
    "Accessibility permission for this — it never logs or sends your keystrokes anywhere.";

} // namespace

const std::vector<std::string_view>& windowTexts() {
    static const std::vector<std::string_view> texts{
        "Welcome to Pallistrom",
        greeting,
        "Grant Accessibility access",
        reason,
        "Open Accessibility Settings…",
        "Toggle “Pallistrom” on in the list, then come back here.",
        "Choose your shortcuts",
        "You can change these anytime from the menu bar.",
        "You're all set",
        "Pallistrom lives in your menu bar. Open it anytime to tweak shortcuts.",
        "Launch Pallistrom at login",
        "Back",
        "Continue",
        "Done",
        "Accessibility access granted",
        "Waiting for Accessibility access",
        "Pallistrom",
        "Terminal-style editing, everywhere",
        "Open Settings…",
        "Shortcuts",
        "General",
        "Replay Onboarding",
        "Quit Pallistrom",
        "Recommended",
    };
    return texts;
}

void lengthenTexts(fake::Platform& platform) {
    for (const std::string_view key : windowTexts()) {
        std::string text(key);
        // Whole words of its own, the first ones.
        const std::size_t wanted = text.size() + (text.size() + 2) / 3;
        std::size_t end = key.find(' ', wanted - text.size());
        end = end == std::string_view::npos ? wanted - text.size() : end;
        text += ' ';
        text += key.substr(0, end);
        platform.localizedStrings[std::string(key)] = text;
    }
}

} // namespace pallistrom
