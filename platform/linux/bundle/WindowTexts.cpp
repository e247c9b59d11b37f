// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/bundle/WindowTexts.h"

#include <algorithm>
#include <array>

namespace pallistrom::WindowTexts {

namespace {

struct Row {
    std::string_view key;
    std::string_view text;
};

constexpr std::array<Row, 6> table{{
    {"Terminal-style text editing, everywhere on your Mac.\nDelete words and lines with the keys "
     "your fingers already know.",
     "Terminal-style text editing, everywhere on your desktop.\nDelete words and lines with the "
     "keys your fingers already know."},
    {"Pallistrom watches for your shortcut keys and turns them into delete commands. macOS "
     "requires Accessibility permission for this — it never logs or sends your keystrokes "
     "anywhere.",
     "Pallistrom watches for your shortcut keys and turns them into delete commands. X11 sessions "
     "let it do so without being asked, Wayland sessions need your permission — it never logs or "
     "sends your keystrokes anywhere."},
    {"Open Accessibility Settings…", "Open Accessibility Access…"},
    {"Toggle “Pallistrom” on in the list, then come back here.",
     "Toggle “Pallistrom” on in that window, then come back here."},
    {"You can change these anytime from the menu bar.",
     "You can change these anytime from the system tray."},
    {"Pallistrom lives in your menu bar. Open it anytime to tweak shortcuts.",
     "Pallistrom lives in your system tray. Open it anytime to tweak shortcuts."},
}};

} // namespace

std::string localized(std::string_view key, std::string_view systemName) {
    if (key == "macOS") {
        return std::string(systemName);
    }
    const auto* const row =
        std::find_if(table.begin(), table.end(), [&](const Row& each) { return each.key == key; });
    return std::string(row == table.end() ? key : row->text);
}

} // namespace pallistrom::WindowTexts
