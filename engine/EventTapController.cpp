// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "engine/EventTapController.h"

#include "engine/tapCallback.h"
#include "platform/AccessibilityTrust.h"

namespace pallistrom {

constinit std::shared_ptr<EventTapController> tapController;

EventTapController::EventTapController(std::span<const ShortcutDef> shortcuts)
    : m_shortcuts(shortcuts.begin(), shortcuts.end()) {}

bool EventTapController::start() {
    if (m_port) {
        CGEventTapEnable(m_port, true);
        return CGEventTapIsEnabled(m_port);
    }

    std::vector<TappedKey> tappedKeys;
    tappedKeys.reserve(m_shortcuts.size());
    for (const ShortcutDef& shortcut : m_shortcuts) {
        tappedKeys.push_back(
            {shortcut.triggerKeyCode, shortcut.requiredFlags, shortcut.forbiddenFlags});
    }
    auto port = CGEventTapCreate(kCGSessionEventTap,
                                 kCGHeadInsertEventTap,
                                 kCGEventTapOptionDefault,
                                 CGEventMaskBit(kCGEventKeyDown) | CGEventMaskBit(kCGEventKeyUp),
                                 tapCallback,
                                 nullptr,
                                 tappedKeys);
    if (!port) {
        return false;
    }
    m_port = std::move(port);
    m_runLoopSource = CFMachPortCreateRunLoopSource(m_port, 0);
    CFRunLoopAddSource(
        CFRunLoopGetCurrent(), m_runLoopSource, CFRunLoopMode::kCFRunLoopCommonModes);
    CGEventTapEnable(m_port, true);
    return true;
}

bool EventTapController::isActive() const {
    return m_port && CGEventTapIsEnabled(m_port);
}

void EventTapController::reEnable() {
    if (m_port) {
        CGEventTapEnable(m_port, true);
    }
}

void EventTapController::ensureRunning() {
    if (!isActive() && AXIsProcessTrusted()) {
        start();
    }
}

} // namespace pallistrom
