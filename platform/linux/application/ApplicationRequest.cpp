// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/ApplicationRequest.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QVariantMap>

#include <algorithm>

namespace pallistrom {

namespace {

/// Longer ones are nobody's; the environment has to hold them.
constexpr qsizetype longestToken = 1024;

/// Returns the token that the platform data of a call bring along, if it is one.
QByteArray tokenIn(const QVariant& argument) {
    const auto platformData = qdbus_cast<QVariantMap>(argument);
    for (const auto& key :
         {QStringLiteral("activation-token"), QStringLiteral("desktop-startup-id")}) {
        const QVariant value = platformData.value(key);
        if (value.typeId() != QMetaType::QString) {
            continue;
        }
        QByteArray token = value.toString().toUtf8();
        const bool isPrintable =
            std::all_of(token.begin(), token.end(), [](char c) { return c > ' ' && c <= '~'; });
        if (!token.isEmpty() && token.size() <= longestToken && isPrintable) {
            return token;
        }
    }
    return {};
}

/// Returns the parameter of an action; nothing if there are several, or one that is no text.
std::optional<QString> parameterIn(const QVariant& argument) {
    const auto parameters = qdbus_cast<QVariantList>(argument);
    if (parameters.isEmpty()) {
        return QString();
    }
    QVariant parameter = parameters.front();
    if (parameter.canConvert<QDBusVariant>()) {
        parameter = parameter.value<QDBusVariant>().variant();
    }
    if (parameters.size() != 1 || parameter.typeId() != QMetaType::QString) {
        return std::nullopt;
    }
    return parameter.toString();
}

} // namespace

std::optional<ApplicationRequest> ApplicationRequest::read(const QString& member,
                                                           const QString& signature,
                                                           const QVariantList& arguments) {
    const auto isCall = [&](QStringView name, QStringView types, qsizetype count) {
        return member == name && signature == types && arguments.size() == count;
    };
    ApplicationRequest request;
    // The program opens no files; whoever wants it to at least sees it.
    if (isCall(u"Activate", u"a{sv}", 1) || isCall(u"Open", u"asa{sv}", 2)) {
        request.activationToken = tokenIn(arguments.back());
        return request;
    }
    if (isCall(u"ActivateAction", u"sava{sv}", 3)) {
        const auto parameter = parameterIn(arguments.at(1));
        if (!parameter) {
            return std::nullopt;
        }
        request.kind = Kind::Action;
        request.action = arguments.front().toString();
        request.parameter = *parameter;
        request.activationToken = tokenIn(arguments.back());
        return request;
    }
    return std::nullopt;
}

} // namespace pallistrom
