// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <functional>

namespace pallistrom {

/// The script that tells us of the window in front, in KDE's window manager: loaded while the
/// window manager runs, and taken out again in the end. A window manager that does not take it yet,
/// since it has just been started, is asked some more times.
class KWinScript {
public:
    explicit KWinScript(QDBusConnection bus);
    KWinScript(const KWinScript&) = delete;
    KWinScript& operator=(const KWinScript&) = delete;
    ~KWinScript();

    /// Says whether there is a window manager of KDE's on the bus; said of each one that comes.
    void setHasKWin(bool hasKWin);

private:
    using Answer = std::function<void(const QDBusMessage& reply)>;

    void load();
    void loadAnew();
    void run(int script);
    void runAt(const QString& object, const Answer& take);
    void tryLater();
    void call(const QDBusMessage& message, const Answer& take);

    QDBusConnection m_bus;
    QObject m_answers; ///< those still under way end with us
    QTimer m_retry;
    std::chrono::milliseconds m_wait;
    bool m_hasKWin = false;
};

} // namespace pallistrom
