// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/AccessibilityTrust.h"

#include "platform/linux/TapWays.h"

namespace pallistrom {

bool AXIsProcessTrusted() {
    return !obstacleOfSession();
}

// Nobody is asked: an X11 session has nothing to grant, and what is in the way elsewhere is no
// question of permission. The access pane tells.
bool AXIsProcessTrustedWithOptions(const std::map<std::string_view, bool>& /*options*/) {
    return AXIsProcessTrusted();
}

} // namespace pallistrom
