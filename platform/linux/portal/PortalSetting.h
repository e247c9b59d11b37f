// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QVariant>

#include <functional>

namespace pallistrom {

/// One setting of the desktop, as its settings portal tells it: asked once, without waiting, and
/// followed from then on. Nothing is told where there is no bus or no portal.
class PortalSetting final : public QObject {
    Q_OBJECT

public:
    /// `take` is called with the value when the portal has answered, and whenever it changes.
    PortalSetting(QDBusConnection bus,
                  QString group,
                  QString key,
                  std::function<void(const QVariant& value)> take);

private:
    /// The bus looks for it by its name. It takes the whole message: with the types of its parts,
    /// Qt delivers nothing in a process that has not met them before.
    Q_SLOT void settingChanged(const QDBusMessage& signal);

    void ask(const QDBusConnection& bus);
    void take(const QVariant& value) const;

    QString m_group;
    QString m_key;
    std::function<void(const QVariant& value)> m_take;
    bool m_hasHeardChange = false;
};

} // namespace pallistrom
