// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/statusitem/XEmbedTray.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

class QDBusPendingCallWatcher;

namespace pallistrom {

/// Waits for a tray: one that hosts StatusNotifierItems, or one of the old X11 kind. Qt decides
/// once and for good which kind there is, when it is first asked, so nobody may ask it before.
///
/// A desktop starts its panel when it likes, so no tray is no news until some time has passed.
/// Waiting goes on after that.
class TrayWatch final : public QObject {
    Q_OBJECT

public:
    struct Answers {
        std::function<void()> found;   ///< called once; nothing is watched any more then
        std::function<void()> missing; ///< called at most once: for now, there is none
    };

    /// Answers from the event loop. `grace` is how long a tray may take to come.
    TrayWatch(Answers answers, std::chrono::milliseconds grace);

private:
    /// The bus finds it by name.
    Q_SLOT void askWatcher();

    void readAnswer(QDBusPendingCallWatcher* answer);
    void oldTrayMayBeThere();
    void useOldTray();
    void found();

    Answers m_answers;
    QDBusConnection m_bus = QDBusConnection::sessionBus();
    QDBusServiceWatcher m_watcherWatcher;
    XEmbedTray m_oldTray;
    QTimer m_oldTrayTimer;
    QTimer m_grace;
    bool m_isFound = false;
};

} // namespace pallistrom
