// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keyboardservice/SessionService.h"

#include "platform/linux/keyboardservice/BusKeyboardService.h"

namespace pallistrom {

KeyboardService& keyboardService() {
    // Never destroyed: that would be after what Qt keeps in global objects, which it needs for
    // that.
    static auto* const service = new BusKeyboardService;
    return *service;
}

} // namespace pallistrom
