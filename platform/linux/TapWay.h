// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/KeyFilter.h"
#include "platform/linux/Obstacle.h"

#include <optional>

namespace pallistrom {

/// One way to the session's keys.
///
/// A running way hands each key that the filter could touch to the filter and delivers what comes
/// of it, or has that done. A way that breaks is not running any more.
class TapWay {
public:
    TapWay() = default;
    TapWay(const TapWay&) = delete;
    TapWay& operator=(const TapWay&) = delete;
    virtual ~TapWay() = default;

    /// Returns what would keep start() from succeeding now. Never waits for a person or another
    /// program.
    virtual std::optional<Obstacle> obstacle() = 0;

    bool canRun() { return !obstacle(); }

    /// Starts to filter keys by `filter`, which outlives the run. Returns whether it does.
    virtual bool start(KeyFilter& filter) = 0;

    /// Lets all keys go their own way again.
    virtual void stop() = 0;

    [[nodiscard]] virtual bool isRunning() const = 0;

    /// The descriptor that becomes readable when serve() has something to do; none for a way that
    /// needs nobody to serve it. Valid while running.
    [[nodiscard]] virtual std::optional<int> descriptor() const { return std::nullopt; }

    /// Handles everything that has come in. Never waits.
    virtual void serve() {}

    /// What the filter answers may have changed.
    virtual void filterChanged() = 0;
};

} // namespace pallistrom
