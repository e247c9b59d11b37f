// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/ModifierTable.h"

#include <functional>
#include <memory>

namespace pallistrom {

/// Follows which keys are which modifiers in the session, as long as it lives. It is told of each
/// change and never asks again and again. Main thread only.
class SessionKeysWatch {
public:
    SessionKeysWatch() = default;
    SessionKeysWatch(const SessionKeysWatch&) = delete;
    SessionKeysWatch& operator=(const SessionKeysWatch&) = delete;
    virtual ~SessionKeysWatch() = default;

    /// Returns the session's table; the standard one while nobody can tell.
    [[nodiscard]] virtual const ModifierTable& modifiers() const = 0;

    /// Returns the watch that fits this session, never null. Waits for no other program than the
    /// display itself: an answer that takes longer arrives as a change. `whenChanged` is called
    /// from the run loop, never from within this function, whenever modifiers() has become
    /// another. It leaves the watch alive.
    [[nodiscard]] static std::unique_ptr<SessionKeysWatch>
    ofSession(std::function<void()> whenChanged);
};

} // namespace pallistrom
