// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/openAccessibilitySettings.h"

#include "platform/Workspace.h"

#include <string_view>

namespace pallistrom {

void openAccessibilitySettings() {
    // An address that does not parse is refused like one that nobody opens.
    constexpr std::string_view page =
        "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";
    static_cast<void>(openURL(page));
}

} // namespace pallistrom
