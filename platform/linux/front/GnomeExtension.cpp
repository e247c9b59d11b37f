// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/GnomeExtension.h"

#include "pallistrom/Names.h"
#include "platform/linux/QtText.h"

#include <QDBusArgument>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace pallistrom {

namespace {

const QString object = QStringLiteral("/org/gnome/Shell");
const QString interface = QStringLiteral("org.gnome.Shell.Extensions");

QDBusMessage shellCall(const char* member) {
    auto call = QDBusMessage::createMethodCall(
        QStringLiteral("org.gnome.Shell"), object, interface, QString::fromLatin1(member));
    call.setAutoStartService(false);
    return call;
}

} // namespace

GnomeExtension::GnomeExtension(QDBusConnection bus, std::function<void()> whenChanged)
    : m_bus(std::move(bus)), m_whenChanged(std::move(whenChanged)) {
    if (!m_bus.isConnected()) {
        return;
    }
    // From whomever: to name the shell would mean to wait until the bus has looked for it. What
    // somebody else says spoils no more than a line of text.
    m_bus.connect(QString(),
                  object,
                  interface,
                  QStringLiteral("ExtensionStateChanged"),
                  this,
                  SLOT(stateChanged(QDBusMessage)));
    ask(qtText(Names::gnomeExtension));
    ask(qtText(Names::classicGnomeExtension));
}

void GnomeExtension::switchOn() {
    if (!m_extension.isEmpty()) {
        auto call = shellCall("EnableExtension");
        call << m_extension;
        m_bus.send(call);
    }
}

GnomeExtension::State GnomeExtension::stateIn(const QVariantMap& description) {
    // Of the shell's interface, which sends numbers as it has them: as fractions.
    switch (static_cast<int>(description.value(QStringLiteral("state")).toDouble())) {
    case 1: // enabled
    case 8: // about to be
        return State::SwitchedOn;
    case 2: // disabled
    case 6: // never enabled so far
    case 7: // about to be disabled
        return State::SwitchedOff;
    case 3: // failed
        return State::Broken;
    default: // out of date, being loaded, gone
        return State::Missing;
    }
}

void GnomeExtension::ask(const QString& extension) {
    auto call = shellCall("GetExtensionInfo");
    call << extension;
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, extension, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<QVariantMap> reply = *watcher;
        if (reply.isValid()) {
            take(extension, reply.value());
        }
    });
}

void GnomeExtension::stateChanged(const QDBusMessage& signal) {
    const QVariantList arguments = signal.arguments();
    if (signal.signature() == QStringLiteral("sa{sv}")) {
        take(arguments[0].toString(), qdbus_cast<QVariantMap>(arguments[1]));
    }
}

// Of the two extensions one fits the shell. The other is of no interest.
void GnomeExtension::take(const QString& extension, const QVariantMap& description) {
    if (extension != qtText(Names::gnomeExtension) &&
        extension != qtText(Names::classicGnomeExtension)) {
        return;
    }
    const State state = stateIn(description);
    if (state == State::Missing && !m_extension.isEmpty() && m_extension != extension) {
        return;
    }
    m_extension = state == State::Missing ? QString() : extension;
    if (m_state != state) {
        m_state = state;
        m_whenChanged();
    }
}

} // namespace pallistrom
