// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/KeyEvent.h"

#include <cstdint>
#include <memory>
#include <span>

namespace pallistrom {

// Values of the three enumerations: Core Graphics, CGEventTypes.h.

/// Where in the stream of events a tap sits.
enum CGEventTapLocation : std::uint32_t {
    kCGSessionEventTap = 1, ///< where events enter the login session
};

/// Where a tap sits among the taps of its location.
enum CGEventTapPlacement : std::uint32_t {
    kCGHeadInsertEventTap = 0,
};

/// Whether a tap may change events.
enum CGEventTapOptions : std::uint32_t {
    kCGEventTapOptionDefault = 0, ///< it may change and drop them
};

/// A set of event types.
using CGEventMask = std::uint64_t;

/// Returns the set that holds `type` alone. `type` is below 64.
constexpr CGEventMask CGEventMaskBit(CGEventType type) {
    return CGEventMask{1} << type;
}

/// What the system passes along to a callback; of no use to this program.
using CGEventTapProxy = void*;

/// Called for each event that reaches the tap, on the thread whose run loop has the tap's source.
/// Returns `event` to pass it on, changed or not, or null to drop it.
using CGEventTapCallBack = CGEventRef (*)(CGEventTapProxy proxy,
                                          CGEventType type,
                                          CGEventRef event,
                                          void* userInfo);

/// A tap. Each system has its own.
class CFMachPort;

/// Shared, because the platform counts references: whoever made the tap holds one, the run loop
/// that serves it another.
using CFMachPortRef = std::shared_ptr<CFMachPort>;

/// A kind of key press that a tap could ever change or drop: the key `keyCode` with all of
/// `required` and none of `forbidden` held. All other modifiers do not matter.
struct TappedKey {
    std::int64_t keyCode = 0;
    CGEventFlags required = 0;
    CGEventFlags forbidden = 0;
};

/// Installs a filter for the events in `eventsOfInterest` and returns its port, or null when the
/// system refuses, as it does while this process may not filter keys.
///
/// `tappedKeys` is all that `callback` could ever answer with anything but the unchanged event. A
/// system may keep every other key away from the tap; one that cannot choose ignores the list.
CFMachPortRef CGEventTapCreate(CGEventTapLocation location,
                               CGEventTapPlacement placement,
                               CGEventTapOptions options,
                               CGEventMask eventsOfInterest,
                               CGEventTapCallBack callback,
                               void* userInfo,
                               std::span<const TappedKey> tappedKeys);

/// Switches the tap on or off. Whether that worked is for CGEventTapIsEnabled to say.
void CGEventTapEnable(const CFMachPortRef& port, bool enable);

/// Returns whether the tap is switched on and works.
bool CGEventTapIsEnabled(const CFMachPortRef& port);

} // namespace pallistrom
