// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FakeObjects.h"
#include "FakePlatform.h"
#include "platform/AccessibilityTrust.h"
#include "platform/Application.h"
#include "platform/EventPosting.h"
#include "platform/Log.h"
#include "platform/Precondition.h"
#include "platform/RunLoop.h"
#include "platform/UserDefaults.h"

#include <cstdio>
#include <string>
#include <utility>

// The seam's operations, answered by the fake platform that exists at the time.

namespace pallistrom {

using fake::Platform;

void NSLog(std::string_view line) {
    // To the error stream as well, where tests that end the process look for it.
    std::fprintf(stderr, "%.*s\n", static_cast<int>(line.size()), line.data());
    Platform::current().log.emplace_back(line);
}

bool AXIsProcessTrusted() {
    return Platform::current().trusted;
}

bool AXIsProcessTrustedWithOptions(const std::map<std::string_view, bool>& options) {
    auto& platform = Platform::current();
    platform.calls.emplace_back("AXIsProcessTrustedWithOptions");
    precondition(options.size() == 1 && options.contains(kAXTrustedCheckOptionPrompt),
                 "other options");
    platform.trustPrompts.push_back(options.at(kAXTrustedCheckOptionPrompt));
    if (platform.whenCalled) {
        platform.whenCalled("AXIsProcessTrustedWithOptions");
    }
    return platform.trusted;
}

// --- Key events.

std::int64_t CGEventGetIntegerValueField(const CGEvent* event, CGEventField field) {
    precondition(field == kCGKeyboardEventKeycode, "no such field");
    return event->stroke.keyCode;
}

void CGEventSetIntegerValueField(CGEventRef event, CGEventField field, std::int64_t value) {
    precondition(field == kCGKeyboardEventKeycode, "no such field");
    event->stroke.keyCode = value;
}

CGEventFlags CGEventGetFlags(const CGEvent* event) {
    return event->stroke.flags;
}

void CGEventSetFlags(CGEventRef event, CGEventFlags flags) {
    event->stroke.flags = flags;
}

// --- Posting.

void CFReleaser::operator()(CGEvent* event) const noexcept {
    --Platform::current().liveObjects;
    delete event;
}

void CFReleaser::operator()(CGEventSource* source) const noexcept {
    --Platform::current().liveObjects;
    delete source;
}

OwnedCGEventSource CGEventSourceCreate(CGEventSourceStateID state) {
    precondition(state == kCGEventSourceStateHIDSystemState, "another source state");
    Platform::current().calls.emplace_back("CGEventSourceCreate");
    if (!Platform::current().hasEventSources) {
        return nullptr;
    }
    ++Platform::current().liveObjects;
    return OwnedCGEventSource(new CGEventSource);
}

OwnedCGEvent
CGEventCreateKeyboardEvent(CGEventSource* /*source*/, std::uint16_t keyCode, bool keyDown) {
    auto& platform = Platform::current();
    if (platform.refusedEvents.contains(platform.createdEvents++)) {
        return nullptr;
    }
    ++platform.liveObjects;
    return OwnedCGEvent(new CGEvent{{.keyCode = keyCode, .flags = 0, .down = keyDown}});
}

void CGEventPost(CGEventTapLocation location, const CGEvent* event) {
    precondition(location == kCGSessionEventTap, "posted somewhere else");
    Platform::current().posted.push_back(event->stroke);
}

// --- The tap.

CFMachPortRef CGEventTapCreate(CGEventTapLocation location,
                               CGEventTapPlacement placement,
                               CGEventTapOptions options,
                               CGEventMask eventsOfInterest,
                               CGEventTapCallBack callback,
                               void* userInfo,
                               std::span<const TappedKey> tappedKeys) {
    auto& platform = Platform::current();
    platform.calls.emplace_back("CGEventTapCreate");
    if (!platform.trusted || !platform.allowsTaps) {
        return nullptr;
    }
    platform.createdTaps.push_back({location,
                                    placement,
                                    options,
                                    eventsOfInterest,
                                    callback,
                                    userInfo,
                                    {tappedKeys.begin(), tappedKeys.end()}});
    auto port = std::make_shared<CFMachPort>();
    platform.port = port;
    return port;
}

void CGEventTapEnable(const CFMachPortRef& port, bool enable) {
    auto& platform = Platform::current();
    precondition(port != nullptr && port == platform.port.lock(), "another port");
    platform.calls.emplace_back(enable ? "CGEventTapEnable" : "CGEventTapDisable");
    platform.tapEnabled = enable && platform.obeysEnable;
}

bool CGEventTapIsEnabled(const CFMachPortRef& port) {
    precondition(port != nullptr && port == Platform::current().port.lock(), "another port");
    return Platform::current().tapEnabled;
}

// --- The run loop.

CFRunLoopRef CFRunLoopGetCurrent() {
    static CFRunLoop loop;
    return &loop;
}

CFRunLoopSourceRef CFMachPortCreateRunLoopSource(const CFMachPortRef& port, std::int64_t order) {
    precondition(order == 0, "another order");
    Platform::current().calls.emplace_back("CFMachPortCreateRunLoopSource");
    return std::make_shared<CFRunLoopSource>(CFRunLoopSource{port});
}

void CFRunLoopAddSource(CFRunLoopRef runLoop,
                        const CFRunLoopSourceRef& source,
                        CFRunLoopMode mode) {
    precondition(runLoop == CFRunLoopGetCurrent(), "another run loop");
    precondition(mode == CFRunLoopMode::kCFRunLoopCommonModes, "another mode");
    Platform::current().calls.emplace_back("CFRunLoopAddSource");
    Platform::current().runLoopSources.push_back(source);
}

NSTimerRef scheduledTimerWithTimeInterval(std::chrono::milliseconds interval,
                                          std::function<void()> action) {
    Platform::current().calls.push_back("scheduledTimer " + std::to_string(interval.count()));
    auto timer = std::make_shared<NSTimer>();
    timer->interval = interval;
    timer->action = std::move(action);
    Platform::current().schedule(timer);
    return timer;
}

void dispatchAsyncOnMainQueue(std::function<void()> block) {
    Platform::current().mainQueue.push_back(std::move(block));
}

} // namespace pallistrom
