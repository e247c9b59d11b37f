// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/RunLoop.h"
#include "shell/state/Binding.h"

#include <QObject>

#include <cstdint>
#include <string_view>

namespace pallistrom {

/// The one thing that views observe: two facts that belong to the system and change behind our
/// back, and a counter of changed switches. Main thread only.
class AppState final : public QObject {
    Q_OBJECT

public:
    /// Reads the system's facts; does not watch them yet.
    AppState();

    /// Returns the program's one state. Made on first use, never destroyed.
    static AppState& shared();

    /// Reads the facts again, and from now on every 1.5 seconds. To be called once.
    void start();

    /// Reads the facts again, and publishes those that differ from what is known.
    void refresh();

    /// Returns the switch of the shortcut `id`, as Preferences hold it. Setting it counts as a
    /// change of the preferences. The state outlives the binding.
    [[nodiscard]] Binding binding(std::string_view id);

    /// Registers or unregisters the program as a login item, then looks at what has come of it.
    void setLaunchAtLogin(bool enabled);

    /// Says that a switch has been changed: everybody who shows switches reads them again.
    void bumpPrefsVersion();

    [[nodiscard]] bool isTrusted() const { return m_isTrusted; }

    [[nodiscard]] bool launchAtLogin() const { return m_launchAtLogin; }

    [[nodiscard]] std::int64_t prefsVersion() const { return m_prefsVersion; }

Q_SIGNALS:
    /// Before each assignment to one of the three. What is read from here is still the old value:
    /// whoever shows it reads it on a later turn of the loop.
    void objectWillChange();

private:
    bool m_isTrusted;
    bool m_launchAtLogin;
    std::int64_t m_prefsVersion = 0;
    NSTimerRef m_timer;
};

} // namespace pallistrom
