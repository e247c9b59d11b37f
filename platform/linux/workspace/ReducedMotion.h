// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/portal/PortalSetting.h"

#include <QDBusConnection>
#include <QVariant>

#include <string_view>

namespace pallistrom {

/// Whether the desktop asks programs for no animations. Its portal is asked once, without waiting,
/// and tells of changes; until it has answered, and where there is none, the answer is no.
class ReducedMotion {
public:
    /// Asks the portal on `bus`, if there is a bus.
    explicit ReducedMotion(QDBusConnection bus);

    [[nodiscard]] bool isAskedFor() const { return m_isAskedFor; }

    /// Returns whether KDE's settings file of that text says so.
    [[nodiscard]] static bool isAskedForIn(std::string_view kdeGlobals);

private:
    void take(const QVariant& animates);

    PortalSetting m_setting;
    bool m_isAskedFor = false;
};

} // namespace pallistrom
