// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/StartedBy.h"

#include <algorithm>

namespace pallistrom {

StartedBy StartedBy::read(std::span<const char* const> arguments) {
    StartedBy start;
    start.activationToken = qgetenv("XDG_ACTIVATION_TOKEN");
    if (start.activationToken.isEmpty()) {
        start.activationToken = qgetenv("DESKTOP_STARTUP_ID");
    }
    start.isBusService = std::any_of(arguments.begin(), arguments.end(), [](const char* argument) {
        return argument != nullptr && argument == serviceArgument;
    });
    return start;
}

} // namespace pallistrom
