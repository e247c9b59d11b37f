// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Desktop.h"

#include "SettingsFile.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QVariantMap>

#include <chrono>
#include <stdexcept>

namespace pallistrom::bench {

namespace {

QDBusConnection connectionTo(const e2e::SessionBus& bus) {
    const auto address = bus.environment().at("DBUS_SESSION_BUS_ADDRESS");
    return QDBusConnection::connectToBus(QString::fromStdString(address),
                                         QStringLiteral("benchmark"));
}

} // namespace

Desktop::Desktop() : m_connection(connectionTo(m_bus)) {
    if (!m_connection.isConnected()) {
        throw std::runtime_error("no way to the session bus");
    }
    e2e::SettingsFile(m_bus.home().configFolder()).set({{"hasCompletedOnboarding", true}});
    waitForIcons(0);
}

void Desktop::activate(const QString& name, const QString& action) const {
    auto call = QDBusMessage::createMethodCall(name,
                                               u'/' + QString(name).replace(u'.', u'/'),
                                               QStringLiteral("org.freedesktop.Application"),
                                               QStringLiteral("ActivateAction"));
    call << action << QVariantList() << QVariantMap();
    m_connection.asyncCall(call);
}

void Desktop::waitForIcons(int count) const {
    const QString watcher = QStringLiteral("org.kde.StatusNotifierWatcher");
    auto call = QDBusMessage::createMethodCall(watcher,
                                               QStringLiteral("/StatusNotifierWatcher"),
                                               QStringLiteral("org.freedesktop.DBus.Properties"),
                                               QStringLiteral("Get"));
    call << watcher << QStringLiteral("RegisteredStatusNotifierItems");
    const bool areThere = waitUntil(
        [&] {
            const QDBusMessage reply = m_connection.call(call);
            return reply.type() == QDBusMessage::ReplyMessage && reply.arguments()
                                                                         .constFirst()
                                                                         .value<QDBusVariant>()
                                                                         .variant()
                                                                         .toStringList()
                                                                         .size() == count;
        },
        Deadline(std::chrono::seconds(20)));
    if (!areThere) {
        throw std::runtime_error("the tray does not show what it should");
    }
}

} // namespace pallistrom::bench
