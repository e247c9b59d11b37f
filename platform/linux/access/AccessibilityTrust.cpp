// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/AccessibilityTrust.h"

#include "platform/linux/TapWays.h"
#include "platform/linux/keyboardservice/KeyboardService.h"
#include "platform/linux/keyboardservice/SessionService.h"

namespace pallistrom {

bool AXIsProcessTrusted() {
    return !obstacleOfSession();
}

// Where a way to the keys is free there is nothing to ask for.
bool AXIsProcessTrustedWithOptions(const std::map<std::string_view, bool>& options) {
    const bool isTrusted = AXIsProcessTrusted();
    const auto prompt = options.find(kAXTrustedCheckOptionPrompt);
    if (!isTrusted && prompt != options.end() && prompt->second) {
        keyboardService().requestGrant();
    }
    return isTrusted;
}

} // namespace pallistrom
