// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/BusFrontSource.h"

#include "pallistrom/Names.h"
#include "platform/linux/QtText.h"
#include "platform/linux/front/FrontMessage.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace pallistrom {

namespace {

const QString kwin = QStringLiteral("org.kde.KWin");

QStringList desktops() {
    return {kwin, QStringLiteral("org.gnome.Shell")};
}

QDBusMessage busCall(const char* member) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                          QStringLiteral("/org/freedesktop/DBus"),
                                          QStringLiteral("org.freedesktop.DBus"),
                                          QString::fromLatin1(member));
}

} // namespace

BusFrontSource::BusFrontSource(QDBusConnection bus, std::function<void()> whenChanged)
    : m_bus(std::move(bus)), m_whenChanged(std::move(whenChanged)), m_kwinScript(m_bus) {
    if (!m_bus.isConnected()) {
        return;
    }
    m_watcher.setConnection(m_bus);
    m_watcher.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    QObject::connect(&m_watcher,
                     &QDBusServiceWatcher::serviceOwnerChanged,
                     &m_watcher,
                     [this](const QString& name, const QString& /*before*/, const QString& owner) {
                         ownerChanged(name, owner);
                     });
    m_bus.registerVirtualObject(qtText(Names::frontObject), this);
    for (const QString& desktop : desktops()) {
        m_watcher.addWatchedService(desktop);
        findOwner(desktop);
    }
}

BusFrontSource::~BusFrontSource() {
    if (m_bus.isConnected()) {
        m_bus.unregisterObject(qtText(Names::frontObject));
        auto call = busCall("ReleaseName");
        call << qtText(Names::frontBusName);
        m_bus.send(call);
    }
}

void BusFrontSource::findOwner(const QString& name) {
    auto call = busCall("GetNameOwner");
    call << name;
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), &m_watcher);
    QObject::connect(
        watcher, &QDBusPendingCallWatcher::finished, &m_watcher, [this, name, watcher] {
            watcher->deleteLater();
            const QDBusPendingReply<QString> reply = *watcher;
            // Who came in the meantime has been heard of.
            if (!m_owners.contains(name)) {
                ownerChanged(name, reply.isValid() ? reply.value() : QString());
            }
        });
}

void BusFrontSource::ownerChanged(const QString& name, const QString& owner) {
    const bool areAllKnown = m_owners.size() == static_cast<std::size_t>(desktops().size());
    const QString before = std::exchange(m_owners[name], owner);
    if (!before.isEmpty() && before == m_speaker) {
        setReport(FrontReport::unknown());
    }
    // Not before, since what is said by somebody not known yet is not believed.
    if (!areAllKnown && m_owners.size() == static_cast<std::size_t>(desktops().size())) {
        takeName();
    }
    if (name == kwin) {
        m_kwinScript.setHasKWin(!owner.isEmpty());
    }
}

// By the bus itself, without a wait for its answer. Where another process has the name, we are
// next.
void BusFrontSource::takeName() {
    auto call = busCall("RequestName");
    call << qtText(Names::frontBusName) << 0U;
    m_bus.asyncCall(call);
}

void BusFrontSource::setReport(const FrontReport& report) {
    if (report != m_report) {
        m_report = report;
        m_whenChanged();
    }
}

QString BusFrontSource::introspect(const QString& /*path*/) const {
    return FrontMessage::introspection();
}

bool BusFrontSource::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    const auto isOwner = [&](const auto& owner) {
        return owner.second == message.service();
    };
    if (message.interface() != qtText(Names::frontBusName) ||
        std::none_of(m_owners.begin(), m_owners.end(), isOwner)) {
        return false;
    }
    const auto report =
        FrontMessage::read(message.member(), message.signature(), message.arguments());
    if (!report) {
        return false;
    }
    if (message.isReplyRequired()) {
        connection.send(message.createReply());
    }
    m_speaker = message.service();
    setReport(*report);
    return true;
}

} // namespace pallistrom
