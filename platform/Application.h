// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Menu.h"

#include <cstdint>
#include <memory>

namespace pallistrom {

/// How much of the screen's furniture an application has. Values: AppKit, NSRunningApplication.h.
enum class NSApplicationActivationPolicy : std::int64_t {
    NSApplicationActivationPolicyRegular = 0,   ///< a place in the dock and a menu bar
    NSApplicationActivationPolicyAccessory = 1, ///< neither
};

/// What the application object tells of its life. Actions that name no target end here.
class ApplicationDelegate : public ActionTarget {
public:
    /// Called once, from the running event loop.
    virtual void applicationDidFinishLaunching() = 0;

    /// Called when the user starts the program again while it runs.
    virtual void applicationShouldHandleReopen() = 0;
};

/// The application as its system knows it.
class Application {
public:
    Application() = default;
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;
    virtual ~Application() = default;

    /// Makes the one application object from the program's arguments, which it may shorten and
    /// which outlive it. To be called once.
    static Application& sharedApplication(int& argc, char** argv);

    /// Returns the one application object. It is a programming error if none was made.
    static Application& sharedApplication();

    /// Names who is told of the application's life. The application does not own it.
    virtual void setDelegate(const std::weak_ptr<ApplicationDelegate>& delegate) = 0;

    virtual void setActivationPolicy(NSApplicationActivationPolicy policy) = 0;

    /// Makes this the application in front, even if another one is being used.
    virtual void activateIgnoringOtherApps(bool flag) = 0;

    /// Runs the event loop until the application is told to end. Returns the exit status of the
    /// program: failure if the system could not let it run.
    [[nodiscard]] virtual int run() = 0;

    /// Ends the event loop, and with it the program.
    virtual void terminate() = 0;
};

} // namespace pallistrom
