// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FakeKWin.h"

#include <QDBusMessage>

#include <utility>

namespace pallistrom {

namespace {

const QString name = QStringLiteral("org.kde.KWin");

} // namespace

FakeKWin::FakeKWin(QDBusConnection bus, Generation generation)
    : m_bus(std::move(bus)),
      m_scriptObject(generation == Generation::Plasma6 ? QStringLiteral("/Scripting/Script7")
                                                       : QStringLiteral("/7")) {
    m_bus.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
    m_bus.registerService(name);
}

FakeKWin::~FakeKWin() {
    m_bus.unregisterService(name);
    m_bus.unregisterObject(QStringLiteral("/"), QDBusConnection::UnregisterTree);
}

QString FakeKWin::introspect(const QString& /*path*/) const {
    return {};
}

bool FakeKWin::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    if (message.interface() == QStringLiteral("org.kde.kwin.Script")) {
        m_calls.append(message.member() + QLatin1Char(' ') + message.path());
        return message.path() == m_scriptObject && connection.send(message.createReply());
    }
    m_calls.append(message.member());
    if (message.member() == QStringLiteral("unloadScript")) {
        return connection.send(message.createReply(false));
    }
    if (m_refusals > 0) {
        --m_refusals;
        return connection.send(message.createReply(-1));
    }
    m_file = message.arguments().value(0).toString();
    return connection.send(message.createReply(7));
}

} // namespace pallistrom
