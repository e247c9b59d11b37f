// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/EventTap.h"

#include "platform/AccessibilityTrust.h"
#include "service/seam/MachPort.h"

namespace pallistrom {

// There is one place for taps on Linux, and they see key presses and releases only.
CFMachPortRef CGEventTapCreate(CGEventTapLocation /*location*/,
                               CGEventTapPlacement /*placement*/,
                               CGEventTapOptions /*options*/,
                               CGEventMask /*eventsOfInterest*/,
                               CGEventTapCallBack callback,
                               void* userInfo,
                               std::span<const TappedKey> tappedKeys) {
    if (!AXIsProcessTrusted()) {
        return nullptr;
    }
    return std::make_shared<CFMachPort>(KeyFilter(callback, userInfo, tappedKeys));
}

void CGEventTapEnable(const CFMachPortRef& port, bool enable) {
    port->setEnabled(enable);
}

bool CGEventTapIsEnabled(const CFMachPortRef& port) {
    return port->isEnabled();
}

} // namespace pallistrom
