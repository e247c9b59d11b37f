// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/SystemUpdateClock.h"

#include "platform/Log.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <utility>

namespace pallistrom {

std::int64_t SystemUpdateClock::now() const {
    return std::time(nullptr);
}

void SystemUpdateClock::wakeIn(std::chrono::seconds wait, std::function<void()> action) {
    if (!m_timer.isOpen()) {
        // The timers of the event loop stand still while the computer sleeps, which would put off
        // the daily check of a notebook for days.
        m_timer = OwnedDescriptor(timerfd_create(CLOCK_BOOTTIME, TFD_NONBLOCK | TFD_CLOEXEC));
        if (!m_timer.isOpen()) {
            NSLog("Pallistrom: there is no timer for update checks");
            return;
        }
        m_notifier = std::make_unique<QSocketNotifier>(m_timer.get(), QSocketNotifier::Read);
        QObject::connect(
            m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { ring(); });
    }
    m_action = std::move(action);
    itimerspec time{};
    time.it_value.tv_sec = wait.count();
    // None at all would mean never.
    time.it_value.tv_nsec = wait.count() <= 0 ? 1 : 0;
    timerfd_settime(m_timer.get(), 0, &time, nullptr);
}

void SystemUpdateClock::stop() {
    m_action = nullptr;
    if (m_timer.isOpen()) {
        const itimerspec never{};
        timerfd_settime(m_timer.get(), 0, &never, nullptr);
    }
}

void SystemUpdateClock::ring() {
    std::uint64_t times = 0;
    if (read(m_timer.get(), &times, sizeof times) == sizeof times) {
        if (const auto action = std::exchange(m_action, nullptr)) {
            action();
        }
    }
}

} // namespace pallistrom
