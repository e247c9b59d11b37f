// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventTap.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

namespace pallistrom {

/// The event loop of a thread.
class CFRunLoop;
using CFRunLoopRef = CFRunLoop*;

/// Something that a run loop serves.
class CFRunLoopSource;

/// Shared, because the platform counts references: the maker holds one, the run loop another.
using CFRunLoopSourceRef = std::shared_ptr<CFRunLoopSource>;

/// When a source is served.
enum class CFRunLoopMode : std::uint8_t {
    kCFRunLoopCommonModes, ///< always, also while a menu is open or a modal panel runs
};

/// Returns the run loop of the calling thread. It lives as long as the thread.
CFRunLoopRef CFRunLoopGetCurrent();

/// Returns the source through which a run loop serves `port`. Sources of lower `order` go first.
CFRunLoopSourceRef CFMachPortCreateRunLoopSource(const CFMachPortRef& port, std::int64_t order);

/// Makes `runLoop` serve `source` and hold a reference to it.
void CFRunLoopAddSource(CFRunLoopRef runLoop, const CFRunLoopSourceRef& source, CFRunLoopMode mode);

/// A timer on a run loop.
class NSTimer;

/// Shared, because the platform counts references: letting go of one does not stop the timer, which
/// the run loop keeps.
using NSTimerRef = std::shared_ptr<NSTimer>;

/// Calls `action` on the calling thread's run loop every `interval`, for as long as the loop runs.
NSTimerRef scheduledTimerWithTimeInterval(std::chrono::milliseconds interval,
                                          std::function<void()> action);

/// Runs `block` on a later turn of the main thread's run loop. Blocks run in the order in which
/// they came.
void dispatchAsyncOnMainQueue(std::function<void()> block);

} // namespace pallistrom
