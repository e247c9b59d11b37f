// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/ReducedMotion.h"

#include "platform/linux/applications/DesktopEntryLines.h"

#include <QString>

#include <charconv>
#include <system_error>
#include <utility>

namespace pallistrom {

ReducedMotion::ReducedMotion(QDBusConnection bus)
    : m_setting(std::move(bus),
                QStringLiteral("org.gnome.desktop.interface"),
                QStringLiteral("enable-animations"),
                [this](const QVariant& animates) { take(animates); }) {}

bool ReducedMotion::isAskedForIn(std::string_view kdeGlobals) {
    bool result = false;
    DesktopEntryLines::forEachValue(
        kdeGlobals, "KDE", [&](std::string_view name, std::string_view value) {
            if (name == "AnimationDurationFactor") {
                double factor = 1;
                const auto [end, error] =
                    std::from_chars(value.data(), value.data() + value.size(), factor);
                result = error == std::errc() && factor <= 0;
            }
        });
    return result;
}

void ReducedMotion::take(const QVariant& animates) {
    if (animates.typeId() == QMetaType::Bool) {
        m_isAskedFor = !animates.toBool();
    }
}

} // namespace pallistrom
