// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "TimedApplication.h"

#include <QThread>

#include <algorithm>
#include <ctime>

namespace pallistrom::bench {

namespace {

std::chrono::nanoseconds read(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

} // namespace

std::chrono::nanoseconds timeAtWork() {
    return read(CLOCK_THREAD_CPUTIME_ID);
}

bool TimedApplication::notify(QObject* receiver, QEvent* event) {
    // The events of other threads come by here, too, on their threads.
    if (QThread::currentThread() != thread() || m_depth > 0) {
        return QCoreApplication::notify(receiver, event);
    }
    ++m_depth;
    const auto start = read(CLOCK_MONOTONIC);
    const auto workStart = timeAtWork();
    const bool result = QCoreApplication::notify(receiver, event);
    m_longestAtWork = std::max(m_longestAtWork, timeAtWork() - workStart);
    m_longest = std::max(m_longest, read(CLOCK_MONOTONIC) - start);
    --m_depth;
    return result;
}

void TimedApplication::reset() {
    m_longest = m_longestAtWork = {};
}

} // namespace pallistrom::bench
