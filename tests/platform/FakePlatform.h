// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Application.h"
#include "platform/EventPosting.h"
#include "platform/EventTap.h"
#include "platform/LoginItem.h"
#include "platform/ProcessInfo.h"
#include "platform/RunLoop.h"
#include "platform/StatusItem.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom::fake {

/// A keystroke as a test sees it.
struct Stroke {
    std::int64_t keyCode = 0;
    CGEventFlags flags = 0;
    bool down = false;

    friend bool operator==(const Stroke&, const Stroke&) = default;
};

void PrintTo(const Stroke& stroke, std::ostream* out);

/// What a tap was created with.
struct TapParameters {
    CGEventTapLocation location{};
    CGEventTapPlacement placement{};
    CGEventTapOptions options{};
    CGEventMask eventsOfInterest = 0;
    CGEventTapCallBack callback = nullptr;
    void* userInfo = nullptr;
    std::vector<TappedKey> tappedKeys;
};

/// The operating system of the tests: what it allows is set by hand, what it was asked is written
/// down. One exists at a time, from construction to destruction, and every seam operation goes to
/// it.
class Platform {
public:
    Platform();
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;
    ~Platform();

    /// The one that exists now.
    static Platform& current();

    // --- What the system allows.
    bool trusted = true;
    bool allowsTaps = true;      ///< whether a trusted process gets a tap
    bool obeysEnable = true;     ///< whether switching a tap on works
    bool hasEventSources = true; ///< whether CGEventSourceCreate gives one
    std::set<std::size_t>
        refusedEvents; ///< which of the made-up events, counted from 0, are refused

    std::function<void(std::string_view call)> whenCalled; ///< told of the calls that are marked

    // --- What it was asked, in order and in words: "registerDefaults", "CGEventTapCreate", ...
    std::vector<std::string> calls;
    std::vector<std::string> log;

    // --- The tap.
    std::vector<TapParameters> createdTaps;
    std::weak_ptr<CFMachPort> port;
    bool tapEnabled = false;
    std::vector<CFRunLoopSourceRef> runLoopSources; ///< held by the run loop
    std::vector<Stroke> posted;
    std::size_t createdEvents = 0;
    std::size_t liveObjects = 0; ///< events and sources that nobody has released

    /// Sends an event through the tap as the system would. Returns what comes out, if anything
    /// does.
    std::unique_ptr<Stroke> send(CGEventType type, Stroke stroke) const;

    // --- The user's settings.
    std::map<std::string, bool, std::less<>> storedDefaults;
    std::map<std::string, bool, std::less<>> registeredDefaults;
    mutable std::vector<std::string> defaultsRead; ///< keys, in order, while `recordsReads`
    bool recordsReads = true;
    std::size_t registrations = 0;

    /// What a restart of the program leaves: stored settings, and nothing registered.
    void restartProcess();

    // --- Time. It stands still until it is moved.
    std::size_t wakeUps = 0; ///< how often a timer has run

    /// Moves the clock, running each timer whenever it is due.
    void advance(std::chrono::milliseconds by);

    /// Adds a timer; RunLoop's side of the fake.
    void schedule(const NSTimerRef& timer);

    // --- The main queue. It stands still until it is run.
    std::deque<std::function<void()>> mainQueue;

    /// Runs the blocks that are on the queue now, and those that they put there.
    void runMainQueue();

    // --- The application.
    std::weak_ptr<ApplicationDelegate> delegate;
    std::vector<NSApplicationActivationPolicy> activationPolicies;
    std::size_t activations = 0; ///< how often it asked to be in front
    bool terminated = false;

    // --- The status bar.
    bool hasStatusBar = true;    ///< whether it gives items
    bool hasStatusButton = true; ///< whether its items have buttons
    std::weak_ptr<NSStatusItem> statusItem;
    std::vector<std::string> toolTips;                 ///< each one that was set
    std::vector<std::optional<NSImage>> images;        ///< each one that was set
    std::vector<NSMenu> menus;                         ///< each one that was set
    std::set<std::string, std::less<>> missingSymbols; ///< of the system's symbols

    /// Chooses the enabled item of that title from the menu on show, as a click would.
    void chooseMenuItem(std::string_view title) const;

    // --- The login item.
    SMAppServiceStatus loginItemStatus = SMAppServiceStatus::SMAppServiceStatusNotRegistered;
    std::optional<NSError> loginItemRefusal; ///< why changes are refused, if they are

    // --- The updater.
    std::size_t updateChecks = 0; ///< asked for
    bool checksAutomatically = true;

    // --- Permission, workspace, bundle, process.
    std::vector<bool> trustPrompts; ///< each time that options were given: whether to ask the user
    bool opensURLs = true;
    std::vector<std::string> openedURLs;
    bool reducesMotion = false;
    std::map<std::string, std::string, std::less<>> infoDictionary{
        {"CFBundleShortVersionString", "1.2"}};
    std::map<std::string, std::string, std::less<>> localizedStrings; ///< by key
    NSOperatingSystemVersion systemVersion{
        .majorVersion = 15, .minorVersion = 1, .patchVersion = 0};

private:
    std::chrono::milliseconds m_now{0};
    std::vector<NSTimerRef> m_timers;
};

} // namespace pallistrom::fake
