// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "shell/state/LaunchAtLogin.h"

#include "platform/Log.h"
#include "platform/LoginItem.h"

#include <optional>

namespace pallistrom::LaunchAtLogin {

namespace {

void logFailure(const std::optional<NSError>& error) {
    if (error) {
        NSLog("Pallistrom: launch-at-login change failed: " + error->localizedDescription);
    }
}

} // namespace

bool isEnabled() {
    return SMAppService::mainAppService().status() == SMAppServiceStatus::SMAppServiceStatusEnabled;
}

// Not symmetric, on purpose: asking again may bring the user's approval, while a registration that
// waits for it is not ours to withdraw.
void set(bool enabled) {
    if (enabled == isEnabled()) {
        return;
    }
    const auto service = SMAppService::mainAppService();
    logFailure(enabled ? service.registerAndReturnError() : service.unregisterAndReturnError());
}

} // namespace pallistrom::LaunchAtLogin
