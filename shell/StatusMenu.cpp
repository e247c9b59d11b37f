// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "shell/StatusMenu.h"

#include "engine/Preferences.h"

#include <string>

namespace pallistrom {

namespace {

NSMenuItem warning() {
    NSMenuItem item;
    item.title = "⚠ Accessibility access needed";
    item.action = "openAccessibility";
    return item;
}

NSMenuItem heading(std::string_view title) {
    NSMenuItem item;
    item.title = title;
    item.isEnabled = false;
    return item;
}

NSMenuItem switchOf(const ShortcutDef& shortcut) {
    NSMenuItem item;
    item.title = std::string(shortcut.keyLabel).append("   ").append(shortcut.title);
    item.action = "toggleShortcut:";
    item.representedObject = shortcut.id;
    item.isCheckable = true;
    item.state = Preferences::isEnabled(shortcut.id) ? NSControlStateValue::NSControlStateValueOn
                                                     : NSControlStateValue::NSControlStateValueOff;
    return item;
}

NSMenuItem
command(std::string_view title, std::string_view action, std::string_view keyEquivalent = {}) {
    NSMenuItem item;
    item.title = title;
    item.action = action;
    item.keyEquivalent = keyEquivalent;
    return item;
}

} // namespace

NSMenu statusMenu(bool trusted,
                  std::span<const ShortcutDef> shortcuts,
                  const std::weak_ptr<ActionTarget>& target) {
    NSMenu menu;
    const auto add = [&](NSMenuItem item) {
        item.target = target;
        menu.push_back(std::move(item));
    };
    if (!trusted) {
        menu.push_back(warning());
        menu.push_back(NSMenuItem::separatorItem());
    }
    menu.push_back(heading("Shortcuts"));
    for (const ShortcutDef& shortcut : shortcuts) {
        add(switchOf(shortcut));
    }
    menu.push_back(NSMenuItem::separatorItem());
    add(command("Settings…", "showSettings", ","));
    add(command("Onboarding…", "showOnboarding:"));
    add(command("Check for Updates…", "checkForUpdates"));
    add(command("Report an Issue…", "reportIssue"));
    menu.push_back(NSMenuItem::separatorItem());
    add(command("Quit Pallistrom", "quit", "q"));
    return menu;
}

} // namespace pallistrom
