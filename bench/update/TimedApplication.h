// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

#include <chrono>

namespace pallistrom::bench {

/// An application that knows for how long each event holds the main loop.
class TimedApplication final : public QCoreApplication {
public:
    using QCoreApplication::QCoreApplication;

    bool notify(QObject* receiver, QEvent* event) override;

    /// Begins anew.
    void reset();

    /// By one event, at the longest, since reset().
    [[nodiscard]] std::chrono::nanoseconds longest() const { return m_longest; }

    /// The same, but only the processor's time: without what other programs took in between.
    [[nodiscard]] std::chrono::nanoseconds longestAtWork() const { return m_longestAtWork; }

private:
    int m_depth = 0;
    std::chrono::nanoseconds m_longest{};
    std::chrono::nanoseconds m_longestAtWork{};
};

/// Returns the processor's time that this thread has had.
[[nodiscard]] std::chrono::nanoseconds timeAtWork();

} // namespace pallistrom::bench
