// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/UpdateClock.h"

#include <functional>
#include <memory>
#include <optional>

namespace pallistrom {

/// The time of a test, which moves it by hand.
class FakeUpdateClock {
public:
    /// Returns the clock that shows this time. It does not outlive this.
    [[nodiscard]] std::unique_ptr<UpdateClock> makeClock();

    std::int64_t now = 1795266000;             ///< 21 November 2026, 13:00
    std::optional<std::chrono::seconds> alarm; ///< in how much time it rings; none if it does not

    /// Lets the time pass until the alarm rings.
    void ring();

private:
    class Clock;

    std::function<void()> m_action;
};

} // namespace pallistrom
