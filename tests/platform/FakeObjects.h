// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FakePlatform.h"

#include <chrono>
#include <functional>

// What the seam's own types are in the tests.

namespace pallistrom {

class CGEvent {
public:
    fake::Stroke stroke;
};

class CGEventSource {};

class CFMachPort {};

class CFRunLoop {};

class CFRunLoopSource {
public:
    CFMachPortRef port;
};

class NSTimer {
public:
    std::chrono::milliseconds interval{0};
    std::chrono::milliseconds due{0};
    std::function<void()> action;
};

} // namespace pallistrom
