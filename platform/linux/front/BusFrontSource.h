// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontSource.h"
#include "platform/linux/front/KWinScript.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QDBusVirtualObject>

#include <functional>
#include <map>

namespace pallistrom {

/// The window in front of a desktop that lets a script of ours say it on the session bus: KDE
/// Plasma, whose window manager is given the script, and GNOME, whose shell has it as an extension.
/// Only these two are listened to. Their calls come without being asked for.
class BusFrontSource final : public FrontSource, private QDBusVirtualObject {
public:
    BusFrontSource(QDBusConnection bus, std::function<void()> whenChanged);
    BusFrontSource(const BusFrontSource&) = delete;
    BusFrontSource& operator=(const BusFrontSource&) = delete;
    ~BusFrontSource() override;

    [[nodiscard]] FrontReport report() const override { return m_report; }

private:
    /// Asks who has `name` now, if anybody.
    void findOwner(const QString& name);
    void ownerChanged(const QString& name, const QString& owner);
    void takeName();
    void setReport(const FrontReport& report);

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

    QDBusConnection m_bus;
    std::function<void()> m_whenChanged;
    FrontReport m_report;
    QString m_speaker; ///< whose report it is, by the name of its connection
    QDBusServiceWatcher m_watcher;
    std::map<QString, QString> m_owners; ///< of the names of both desktops, as far as is known
    KWinScript m_kwinScript;
};

} // namespace pallistrom
