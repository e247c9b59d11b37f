// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>
#include <thread>

namespace pallistrom {

/// The moment until which something is waited for. The usual wait is generous: it is reached only
/// by what will never come, on the slowest machine that runs the tests.
class Deadline {
public:
    using Clock = std::chrono::steady_clock;

    explicit Deadline(std::chrono::milliseconds wait = std::chrono::seconds{20})
        : m_end{Clock::now() + wait} {}

    bool hasPassed() const { return Clock::now() >= m_end; }

    /// As poll(2) takes it: milliseconds, never negative.
    int remainingMilliseconds() const {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_end - Clock::now());
        return static_cast<int>(std::max(left.count(), std::chrono::milliseconds::rep{0}));
    }

private:
    Clock::time_point m_end;
};

/// Asks again and again until `condition` holds; for what nobody announces. Returns whether it held
/// before the deadline.
template<typename Condition>
[[nodiscard]] bool waitUntil(Condition condition, Deadline deadline = Deadline{}) {
    while (!condition()) {
        if (deadline.hasPassed()) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds{2});
    }
    return true;
}

} // namespace pallistrom
