// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/KeySet.h"
#include "service/devices/OutputDevices.h"

#include <linux/input.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace pallistrom {

/// A keyboard that is plugged in, and the virtual devices that stand in for it.
class KeyboardDevice {
public:
    enum class Grab : std::uint8_t {
        Done,
        NotAtRest, ///< a key went down before the grab took effect; it is not grabbed
        Busy,      ///< another program has grabbed it
        Gone,
    };

    enum class LetGo : std::uint8_t {
        Done,
        NotAtRest, ///< a key went down before it was let go; it is grabbed again, or Gone shows
                   ///< soon
    };

    /// Some of what it has sent.
    struct Reading {
        std::span<const input_event> events; ///< valid until the next call of the device
        bool isGone = false;
    };

    KeyboardDevice() = default;
    KeyboardDevice(const KeyboardDevice&) = delete;
    KeyboardDevice& operator=(const KeyboardDevice&) = delete;
    virtual ~KeyboardDevice() = default;

    /// As people and logs know it.
    [[nodiscard]] virtual std::string description() const = 0;

    /// Returns whether the session has had the time to take up the virtual keyboard.
    [[nodiscard]] virtual bool isReady() const = 0;

    /// Whether there is anything to read, and somebody is told then.
    virtual void setWatched(bool watched) = 0;

    /// Reads some of what has come in; nothing if nothing has. Never waits.
    virtual Reading read() = 0;

    /// Throws away what has come in and returns what leads from `known`, the keys that are down as
    /// far as the caller knows, to what the device says now.
    virtual Reading catchUp(const KeySet& known) = 0;

    /// Throws away what has come in and returns the keys and buttons that are down; nothing if the
    /// device is gone.
    virtual std::optional<KeySet> startOver() = 0;

    virtual Grab grab() = 0;

    virtual LetGo letGo() = 0;

    /// Lets go whatever is down.
    virtual void letGoAtOnce() = 0;

    /// Sends `events` at once to a virtual device, if there is one for that part.
    virtual void write(Destination::Part part, std::span<const input_event> events) = 0;

    /// The keyboard has switched a light.
    virtual void lightChanged(std::uint16_t light, std::int32_t value) = 0;
};

} // namespace pallistrom
