// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include <cstdint>
#include <functional>

namespace pallistrom {

/// Our extension for GNOME Shell, by which the shell tells us who is in front: whether it is there
/// and switched on, and a way to switch it on. For as long as somebody wants to see that; the
/// extension does its work without it.
class GnomeExtension final : public QObject {
    Q_OBJECT

public:
    enum class State : std::uint8_t {
        NoShell, ///< this is not GNOME, or the shell has not answered yet
        Missing, ///< the shell knows of no extension of ours that fits its version
        SwitchedOff,
        SwitchedOn,
        Broken, ///< the shell could not start it
    };

    /// Asks the shell. `whenChanged` is called from the run loop whenever state() has become
    /// another.
    GnomeExtension(QDBusConnection bus, std::function<void()> whenChanged);

    [[nodiscard]] State state() const { return m_state; }

    /// Asks the shell to switch it on, and to do so at each login. Whether that works shows in
    /// state().
    void switchOn();

    /// Returns what the shell's description of an extension says; an extension that the shell has
    /// not got, or that is not made for its version, is missing.
    [[nodiscard]] static State stateIn(const QVariantMap& description);

private:
    /// The bus looks for it by its name.
    Q_SLOT void stateChanged(const QDBusMessage& signal);

    void ask(const QString& extension);
    void take(const QString& extension, const QVariantMap& description);

    QDBusConnection m_bus;
    std::function<void()> m_whenChanged;
    State m_state = State::NoShell;
    QString m_extension; ///< the one that fits this shell, once that is known
};

} // namespace pallistrom
