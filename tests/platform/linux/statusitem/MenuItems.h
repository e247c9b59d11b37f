// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Menu.h"

#include <string>
#include <utility>

/// Items as the tests write them.
namespace pallistrom::MenuItems {

inline NSMenuItem command(std::string title, std::string action, std::string key = {}) {
    NSMenuItem item;
    item.title = std::move(title);
    item.action = std::move(action);
    item.keyEquivalent = std::move(key);
    return item;
}

inline NSMenuItem heading(std::string title) {
    NSMenuItem item;
    item.title = std::move(title);
    item.isEnabled = false;
    return item;
}

enum class Mark { Off, On };

inline NSMenuItem shortcut(std::string id, Mark mark) {
    NSMenuItem item = command("Shortcut " + id, "toggleShortcut:");
    item.representedObject = std::move(id);
    item.isCheckable = true;
    item.state = mark == Mark::On ? NSControlStateValue::NSControlStateValueOn
                                  : NSControlStateValue::NSControlStateValueOff;
    return item;
}

/// A menu like the one of the program.
inline NSMenu usual() {
    return {heading("Shortcuts"),
            shortcut("ctrlW", Mark::On),
            shortcut("ctrlU", Mark::Off),
            NSMenuItem::separatorItem(),
            command("Settings…", "showSettings", ","),
            NSMenuItem::separatorItem(),
            command("Quit Pallistrom", "quit", "q")};
}

/// The same with the warning in front.
inline NSMenu warning() {
    NSMenu menu = usual();
    menu.insert(menu.begin(),
                {command("⚠ Accessibility access needed", "openAccessibility"),
                 NSMenuItem::separatorItem()});
    return menu;
}

} // namespace pallistrom::MenuItems
