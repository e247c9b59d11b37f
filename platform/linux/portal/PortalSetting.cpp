// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/portal/PortalSetting.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <utility>

namespace pallistrom {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString object = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");

} // namespace

PortalSetting::PortalSetting(QDBusConnection bus,
                             QString group,
                             QString key,
                             std::function<void(const QVariant& value)> take)
    : m_group(std::move(group)), m_key(std::move(key)), m_take(std::move(take)) {
    if (!bus.isConnected()) {
        return;
    }
    // From whomever: to name the portal would mean to wait until the bus has looked for it. The
    // arguments keep all other settings from waking us.
    bus.connect(QString(),
                object,
                interface,
                QStringLiteral("SettingChanged"),
                {m_group, m_key},
                QString(),
                this,
                SLOT(settingChanged(QDBusMessage)));
    ask(bus);
}

void PortalSetting::ask(const QDBusConnection& bus) {
    auto question =
        QDBusMessage::createMethodCall(service, object, interface, QStringLiteral("Read"));
    question << m_group << m_key;
    auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        // Qt may hand an answer over after a change that came behind it.
        if (reply.isValid() && !m_hasHeardChange) {
            take(reply.value().variant());
        }
    });
}

void PortalSetting::settingChanged(const QDBusMessage& signal) {
    const QVariantList arguments = signal.arguments();
    if (arguments.size() == 3 && arguments[0] == m_group && arguments[1] == m_key) {
        m_hasHeardChange = true;
        take(arguments[2]);
    }
}

// The portal wraps what it is asked for twice.
void PortalSetting::take(const QVariant& value) const {
    QVariant inner = value;
    while (inner.canConvert<QDBusVariant>()) {
        inner = inner.value<QDBusVariant>().variant();
    }
    m_take(inner);
}

} // namespace pallistrom
