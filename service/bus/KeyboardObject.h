// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/bus/Call.h"
#include "service/bus/Callers.h"
#include "service/bus/Handles.h"

#include <functional>
#include <string>

namespace pallistrom {

/// The object that programs call. Calls are read and checked here; who made them and whether they
/// may is for others to say.
class KeyboardObject {
public:
    using Called = std::function<void(const std::string& caller, PendingCall call)>;

    explicit KeyboardObject(Called called) : m_called{std::move(called)} {}

    ~KeyboardObject() = default;
    KeyboardObject(const KeyboardObject&) = delete;
    KeyboardObject& operator=(const KeyboardObject&) = delete;

    /// Returns a negative errno if the bus refuses.
    [[nodiscard]] int publish(sd_bus* bus);

    /// Reads and passes on a call of the interface.
    static int received(sd_bus_message* message, void* object, sd_bus_error* error);

private:
    Called m_called;
    OwnedSlot m_slot;
};

} // namespace pallistrom
