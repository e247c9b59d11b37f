// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Panel.h"
#include "SessionBus.h"
#include "VirtualDisplay.h"

#include <QDBusConnection>
#include <QString>

#include <map>
#include <string>

namespace pallistrom::bench {

/// A session of the benchmark's own: a display, a window manager, a bus, a panel with a tray, and
/// the settings of a person who has seen the guide. Throws std::runtime_error if it does not come
/// up.
class Desktop {
public:
    Desktop();

    const std::string& display() const { return m_display.name(); }

    const std::map<std::string, std::string>& environment() const { return m_bus.environment(); }

    const std::filesystem::path& folder() const { return m_bus.home().path(); }

    /// Asks the application `name` for an action of its menu; does not wait for the answer.
    void activate(const QString& name, const QString& action) const;

    /// Waits until the tray shows so many icons.
    void waitForIcons(int count) const;

private:
    e2e::VirtualDisplay m_display;
    e2e::SessionBus m_bus{m_display.name()};
    QDBusConnection m_connection;
    e2e::Panel m_panel{m_bus};
};

} // namespace pallistrom::bench
