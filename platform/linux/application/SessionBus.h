// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/application/ApplicationRequest.h"

#include <QDBusConnection>
#include <QDBusVirtualObject>

#include <functional>

namespace pallistrom {

/// The program's one place on the session bus: whoever has its name is the instance of this
/// session, and is asked through org.freedesktop.Application to show itself or to carry out an
/// action.
///
/// The actions are the selectors of what the status menu shows at the time, without their colon:
/// openAccessibility, showSettings, showOnboarding, checkForUpdates, reportIssue, quit; and
/// toggleShortcut, whose parameter is the id of the shortcut.
class SessionBus final : private QDBusVirtualObject {
public:
    enum class Place {
        Ours,    ///< this is the instance of the session, or there is no session bus
        Others,  ///< another process is, and has been asked to show itself
        Hanging, ///< another process is, and does not answer
    };

    /// `take` is called with each request. It is to return soon: the caller waits for its answer.
    explicit SessionBus(std::function<void(ApplicationRequest)> take);

    /// Takes the place, or leaves a message for whoever has it. `activationToken` lets that one
    /// come to the front.
    [[nodiscard]] Place claim(const QByteArray& activationToken);

    /// Gives the place up. Once it returns, another process can have it.
    void release();

private:
    [[nodiscard]] Place askOther(const QByteArray& activationToken);

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

    QDBusConnection m_connection = QDBusConnection::sessionBus();
    std::function<void(ApplicationRequest)> m_take;
};

} // namespace pallistrom
