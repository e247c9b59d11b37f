// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontApplication.h"

#include <functional>
#include <memory>
#include <optional>

namespace pallistrom {

/// Follows which application is in front of the session, as long as it lives. It is told of each
/// change and never asks again and again. Main thread only.
class FrontWatch {
public:
    FrontWatch() = default;
    FrontWatch(const FrontWatch&) = delete;
    FrontWatch& operator=(const FrontWatch&) = delete;
    virtual ~FrontWatch() = default;

    /// Returns how the application in front takes editing keys; nothing while nobody can tell.
    [[nodiscard]] virtual std::optional<FrontApplication> application() const = 0;

    /// Returns the watch that fits this session, never null. Waits for no other program than the
    /// display itself: an answer that takes longer arrives as a change. `whenChanged` is called
    /// from the run loop, never from within this function, whenever application() has become
    /// another. It leaves the watch alive.
    [[nodiscard]] static std::unique_ptr<FrontWatch> ofSession(std::function<void()> whenChanged);
};

} // namespace pallistrom
