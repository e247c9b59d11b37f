// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

namespace pallistrom {

/// The time, and one alarm.
class UpdateClock {
public:
    UpdateClock() = default;
    UpdateClock(const UpdateClock&) = delete;
    UpdateClock& operator=(const UpdateClock&) = delete;
    virtual ~UpdateClock() = default;

    /// Seconds since 1970.
    [[nodiscard]] virtual std::int64_t now() const = 0;

    /// Calls `action` from the event loop once `wait` has passed, the time included in which the
    /// computer sleeps. Takes the place of an earlier call that is not over.
    virtual void wakeIn(std::chrono::seconds wait, std::function<void()> action) = 0;

    /// Calls nothing any more.
    virtual void stop() = 0;
};

} // namespace pallistrom
