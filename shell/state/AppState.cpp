// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "shell/state/AppState.h"

#include "engine/Preferences.h"
#include "platform/AccessibilityTrust.h"
#include "platform/Precondition.h"
#include "shell/state/LaunchAtLogin.h"

#include <QPointer>

#include <chrono>
#include <limits>
#include <string>

namespace pallistrom {

AppState::AppState()
    : m_isTrusted(AXIsProcessTrusted()), m_launchAtLogin(LaunchAtLogin::isEnabled()) {}

AppState& AppState::shared() {
    static auto* const state = new AppState;
    return *state;
}

void AppState::start() {
    using namespace std::chrono_literals;
    refresh();
    m_timer = scheduledTimerWithTimeInterval(1500ms, [self = QPointer<AppState>(this)] {
        if (self) {
            self->refresh();
        }
    });
}

void AppState::refresh() {
    const bool trusted = AXIsProcessTrusted();
    if (trusted != m_isTrusted) {
        Q_EMIT objectWillChange();
        m_isTrusted = trusted;
    }
    const bool registered = LaunchAtLogin::isEnabled();
    if (registered != m_launchAtLogin) {
        Q_EMIT objectWillChange();
        m_launchAtLogin = registered;
    }
}

Binding AppState::binding(std::string_view id) {
    return {
        .get = [id = std::string(id)] { return Preferences::isEnabled(id); },
        .set =
            [this, id = std::string(id)](bool enabled) {
                Preferences::setEnabled(id, enabled);
                bumpPrefsVersion();
            },
    };
}

void AppState::setLaunchAtLogin(bool enabled) {
    LaunchAtLogin::set(enabled);
    refresh();
}

void AppState::bumpPrefsVersion() {
    precondition(m_prefsVersion < std::numeric_limits<std::int64_t>::max(),
                 "too many changes of preferences");
    Q_EMIT objectWillChange();
    ++m_prefsVersion;
}

} // namespace pallistrom
