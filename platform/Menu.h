// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

struct NSMenuItem;

/// Something that carries out actions by their selectors: "showSettings", or with a colon behind
/// those that look at the sender, "toggleShortcut:".
class ActionTarget {
public:
    ActionTarget() = default;
    ActionTarget(const ActionTarget&) = delete;
    ActionTarget& operator=(const ActionTarget&) = delete;
    virtual ~ActionTarget() = default;

    /// Carries out `selector`; one that it does not know does nothing. `sender` is the chosen item,
    /// if it was one.
    virtual void performAction(std::string_view selector, const NSMenuItem* sender) = 0;
};

/// Values: AppKit, NSCell.h.
enum class NSControlStateValue : std::int64_t {
    NSControlStateValueOff = 0,
    NSControlStateValueOn = 1,
};

/// An entry of a menu.
struct NSMenuItem {
    std::string title;
    std::string action;                 ///< a selector; none for a heading
    std::string keyEquivalent;          ///< pressed with command; empty for none
    std::weak_ptr<ActionTarget> target; ///< none: the application's delegate, at last
    NSControlStateValue state = NSControlStateValue::NSControlStateValueOff;
    std::string representedObject; ///< empty for none
    bool isCheckable = false;      ///< room for a check mark, on or off
    bool isEnabled = true;
    bool isSeparator = false; ///< a line, and nothing else

    static NSMenuItem separatorItem();
};

/// A menu is a value: showing another one means building another one.
using NSMenu = std::vector<NSMenuItem>;

inline NSMenuItem NSMenuItem::separatorItem() {
    NSMenuItem item;
    item.isSeparator = true;
    return item;
}

} // namespace pallistrom
