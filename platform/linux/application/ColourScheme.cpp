// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/ColourScheme.h"

#include "platform/linux/application/DarkPalette.h"

#include <QApplication>
#include <QDBusConnection>
#include <QPalette>
#include <QString>

namespace pallistrom {

namespace {

/// What the portal's colour scheme counts as: 0 is no wish, 2 is light.
constexpr uint preferDark = 1;

} // namespace

ColourScheme::ColourScheme()
    : m_setting(QDBusConnection::sessionBus(),
                QStringLiteral("org.freedesktop.appearance"),
                QStringLiteral("color-scheme"),
                [this](const QVariant& scheme) { apply(scheme); }) {}

void ColourScheme::apply(const QVariant& scheme) {
    const bool wantsDark = scheme.typeId() == QMetaType::UInt && scheme.toUInt() == preferDark;
    if (wantsDark == m_isDark) {
        return;
    }
    if (!wantsDark) {
        m_isDark = false;
        // Back to whatever the desktop says.
        QApplication::setPalette(QPalette());
    } else if (!isDark(QApplication::palette())) {
        m_isDark = true;
        QApplication::setPalette(darkPalette(QApplication::palette()));
    }
}

} // namespace pallistrom
