// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <functional>

namespace pallistrom {

/// The application object of a test, with windows that nobody sees.
class OffscreenApplication {
public:
    /// Serves whatever comes in until `condition` holds. Returns whether it does within ten
    /// seconds.
    [[nodiscard]] static bool runUntil(const std::function<bool()>& condition) {
        QTimer deadline;
        deadline.setSingleShot(true);
        deadline.start(std::chrono::seconds(10));
        while (!condition() && deadline.isActive()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        return condition();
    }

private:
    /// Before the application looks.
    bool m_isOffscreen = qputenv("QT_QPA_PLATFORM", "offscreen");
    int m_argc = 1;
    char m_name[5] = "test";             // NOLINT(modernize-avoid-c-arrays): Qt wants a char**
    char* m_argv[2] = {m_name, nullptr}; // NOLINT(modernize-avoid-c-arrays)
    QApplication m_application{m_argc, m_argv};
};

} // namespace pallistrom
