// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/statusitem/TrayWatch.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <utility>

namespace pallistrom {

namespace {

/// Panels that have both kinds show the old one first. The new one is better, and worth a wait.
constexpr std::chrono::milliseconds oldTrayDelay{1500};

QString watcherName() {
    return QStringLiteral("org.kde.StatusNotifierWatcher");
}

QString watcherPath() {
    return QStringLiteral("/StatusNotifierWatcher");
}

} // namespace

TrayWatch::TrayWatch(Answers answers, std::chrono::milliseconds grace)
    : m_answers(std::move(answers)), m_oldTray([this] { oldTrayMayBeThere(); }) {
    m_oldTrayTimer.setSingleShot(true);
    m_oldTrayTimer.setInterval(oldTrayDelay);
    connect(&m_oldTrayTimer, &QTimer::timeout, this, &TrayWatch::useOldTray);
    m_grace.setSingleShot(true);
    connect(&m_grace, &QTimer::timeout, this, [this] { m_answers.missing(); });
    m_grace.start(grace);

    if (m_bus.isConnected()) {
        m_watcherWatcher.setConnection(m_bus);
        m_watcherWatcher.setWatchMode(QDBusServiceWatcher::WatchForRegistration);
        m_watcherWatcher.addWatchedService(watcherName());
        connect(&m_watcherWatcher,
                &QDBusServiceWatcher::serviceRegistered,
                this,
                &TrayWatch::askWatcher);
        // A watcher alone shows nothing: it keeps a list for hosts, which may come later.
        m_bus.connect(watcherName(),
                      watcherPath(),
                      watcherName(),
                      QStringLiteral("StatusNotifierHostRegistered"),
                      this,
                      SLOT(askWatcher()));
        askWatcher();
    }
    oldTrayMayBeThere();
}

void TrayWatch::askWatcher() {
    auto call = QDBusMessage::createMethodCall(watcherName(),
                                               watcherPath(),
                                               QStringLiteral("org.freedesktop.DBus.Properties"),
                                               QStringLiteral("Get"));
    call << watcherName() << QStringLiteral("IsStatusNotifierHostRegistered");
    call.setAutoStartService(false);
    auto* const answer = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, &TrayWatch::readAnswer);
}

void TrayWatch::readAnswer(QDBusPendingCallWatcher* answer) {
    answer->deleteLater();
    const QDBusPendingReply<QDBusVariant> reply = *answer;
    if (reply.isValid() && reply.value().variant().toBool()) {
        found();
    }
}

void TrayWatch::oldTrayMayBeThere() {
    if (!m_isFound && !m_oldTrayTimer.isActive() && m_oldTray.isThere()) {
        m_oldTrayTimer.start();
    }
}

void TrayWatch::useOldTray() {
    if (m_oldTray.isThere()) {
        found();
    }
}

void TrayWatch::found() {
    if (std::exchange(m_isFound, true)) {
        return;
    }
    m_grace.stop();
    m_oldTrayTimer.stop();
    m_answers.found();
}

} // namespace pallistrom
