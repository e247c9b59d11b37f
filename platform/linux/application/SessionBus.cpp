// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/SessionBus.h"

#include "pallistrom/Names.h"
#include "platform/linux/QtText.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QVariantMap>

#include <chrono>
#include <utility>

namespace pallistrom {

namespace {

/// How long the other instance may take to answer. One that is merely busy has long done so.
constexpr std::chrono::milliseconds patience{5000};

QString interfaceName() {
    return QStringLiteral("org.freedesktop.Application");
}

bool tryToOwn(QDBusConnectionInterface& bus) {
    const QDBusReply<QDBusConnectionInterface::RegisterServiceReply> reply =
        bus.registerService(qtText(Names::applicationId),
                            QDBusConnectionInterface::DontQueueService,
                            QDBusConnectionInterface::DontAllowReplacement);
    return reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceRegistered;
}

bool isGone(const QDBusMessage& reply) {
    const QDBusError::ErrorType error = QDBusError(reply).type();
    return error == QDBusError::ServiceUnknown || error == QDBusError::UnknownObject;
}

} // namespace

SessionBus::SessionBus(std::function<void(ApplicationRequest)> take) : m_take(std::move(take)) {}

SessionBus::Place SessionBus::claim(const QByteArray& activationToken) {
    auto* const bus = m_connection.interface();
    if (!m_connection.isConnected() || bus == nullptr) {
        return Place::Ours;
    }
    // First the object: a call that the bus has kept back for the name comes the moment it is ours.
    m_connection.registerVirtualObject(qtText(Names::applicationObject), this);
    if (tryToOwn(*bus)) {
        return Place::Ours;
    }
    return askOther(activationToken);
}

void SessionBus::release() {
    if (auto* const bus = m_connection.interface(); bus != nullptr) {
        bus->unregisterService(qtText(Names::applicationId));
    }
}

SessionBus::Place SessionBus::askOther(const QByteArray& activationToken) {
    QVariantMap platformData;
    if (!activationToken.isEmpty()) {
        const auto token = QString::fromUtf8(activationToken);
        platformData.insert(QStringLiteral("activation-token"), token);
        platformData.insert(QStringLiteral("desktop-startup-id"), token);
    }
    auto call = QDBusMessage::createMethodCall(qtText(Names::applicationId),
                                               qtText(Names::applicationObject),
                                               interfaceName(),
                                               QStringLiteral("Activate"));
    // The bus must not start the very program that asks.
    call.setAutoStartService(false);
    call << platformData;
    const QDBusMessage reply =
        m_connection.call(call, QDBus::Block, static_cast<int>(patience.count()));
    if (reply.type() == QDBusMessage::ReplyMessage) {
        return Place::Others;
    }
    // It may have ended between the two calls.
    return isGone(reply) && tryToOwn(*m_connection.interface()) ? Place::Ours : Place::Hanging;
}

QString SessionBus::introspect(const QString& /*path*/) const {
    return QStringLiteral(R"(  <interface name="org.freedesktop.Application">
    <method name="Activate">
      <arg type="a{sv}" name="platform_data" direction="in"/>
    </method>
    <method name="Open">
      <arg type="as" name="uris" direction="in"/>
      <arg type="a{sv}" name="platform_data" direction="in"/>
    </method>
    <method name="ActivateAction">
      <arg type="s" name="action_name" direction="in"/>
      <arg type="av" name="parameter" direction="in"/>
      <arg type="a{sv}" name="platform_data" direction="in"/>
    </method>
  </interface>
)");
}

bool SessionBus::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    // A caller may leave the interface out.
    if (!message.interface().isEmpty() && message.interface() != interfaceName()) {
        return false;
    }
    auto request =
        ApplicationRequest::read(message.member(), message.signature(), message.arguments());
    if (!request) {
        return false;
    }
    if (message.isReplyRequired()) {
        connection.send(message.createReply());
    }
    m_take(*std::move(request));
    return true;
}

} // namespace pallistrom
