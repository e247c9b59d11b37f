// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/applications/WindowClass.h"
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

    /// Returns whether anybody tells who is in front. If not, application() may still hold what was
    /// known last.
    [[nodiscard]] virtual bool isKnown() const { return application().has_value(); }

    /// Returns what the window in front says of its application, or said that was there last; empty
    /// names if there was none.
    [[nodiscard]] virtual WindowClass window() const { return {}; }

    /// Returns the watch that fits this session, never null. Waits for no other program than the
    /// display itself: an answer that takes longer arrives as a change. `whenChanged` is called
    /// from the run loop, never from within this function, whenever something of these has become
    /// another. It leaves the watch alive.
    [[nodiscard]] static std::unique_ptr<FrontWatch> ofSession(std::function<void()> whenChanged);
};

} // namespace pallistrom
