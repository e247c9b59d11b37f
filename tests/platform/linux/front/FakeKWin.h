// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QStringList>

#include <cstdint>

namespace pallistrom {

/// What of KDE's window manager is on the bus, in the test's own process. It runs no script, but
/// says that it does, and the test speaks for it.
class FakeKWin final : private QDBusVirtualObject {
public:
    /// Where scripts are that have been loaded.
    enum class Generation : std::uint8_t { Plasma5, Plasma6 };

    /// Takes the name of the window manager on `bus`.
    FakeKWin(QDBusConnection bus, Generation generation);
    FakeKWin(const FakeKWin&) = delete;
    FakeKWin& operator=(const FakeKWin&) = delete;

    /// Leaves the bus.
    ~FakeKWin() override;

    /// Takes no script for as many times.
    void refuse(int times) { m_refusals = times; }

    /// What has been asked of it, without arguments: "loadScript", "run /0".
    [[nodiscard]] const QStringList& calls() const { return m_calls; }

    /// The file that was loaded last.
    [[nodiscard]] const QString& file() const { return m_file; }

private:
    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

    QDBusConnection m_bus;
    QString m_scriptObject;
    int m_refusals = 0;
    QStringList m_calls;
    QString m_file;
};

} // namespace pallistrom
