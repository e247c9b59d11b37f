// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventTap.h"
#include "platform/KeyEvent.h"

#include <cstdint>
#include <memory>

namespace pallistrom {

/// Which state table made-up events start from. Values: Core Graphics, CGEventTypes.h.
enum CGEventSourceStateID : std::int32_t {
    kCGEventSourceStateHIDSystemState = 1,
};

/// Where made-up events come from.
class CGEventSource;

/// Gives objects that the system made back to it.
struct CFReleaser {
    void operator()(CGEvent* event) const noexcept;
    void operator()(CGEventSource* source) const noexcept;
};

using OwnedCGEvent = std::unique_ptr<CGEvent, CFReleaser>;
using OwnedCGEventSource = std::unique_ptr<CGEventSource, CFReleaser>;

/// Returns a source of events, or null when the system has none to give.
OwnedCGEventSource CGEventSourceCreate(CGEventSourceStateID state);

/// Returns a press (`keyDown` true) or release of the key with the virtual key code `keyCode`, or
/// null when the system cannot make one. `source` may be null.
OwnedCGEvent CGEventCreateKeyboardEvent(CGEventSource* source, std::uint16_t keyCode, bool keyDown);

/// Puts a copy of `event` into the session's stream of events at `location`.
void CGEventPost(CGEventTapLocation location, const CGEvent* event);

} // namespace pallistrom
