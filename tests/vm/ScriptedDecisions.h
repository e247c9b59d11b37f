// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "DeliveryScript.h"
#include "platform/EventTap.h"

#include <deque>
#include <vector>

namespace pallistrom::vm {

/// An event tap's callback that decides what a script says, whatever that is. Key events about
/// which it says nothing stay untouched.
class ScriptedDecisions {
public:
    /// Returns whether a callback can decide that: it speaks of keystrokes as the engine does, and
    /// not all that could go out is said by any of those.
    [[nodiscard]] static bool canDecide(const OwnReplacement& change);

    /// Decides what these key events say from now on, each once for an event of its key and kind.
    void use(const std::vector<DeliveryInput>& inputs);

    /// The callback; `userInfo` is an object of this type.
    static CGEventRef
    callback(CGEventTapProxy proxy, CGEventType type, CGEventRef event, void* userInfo);

private:
    CGEventRef decide(CGEventRef event, bool isDown);

    std::deque<DeliveryInput> m_decisions;
};

} // namespace pallistrom::vm
