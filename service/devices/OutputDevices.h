// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <linux/input.h>

#include <chrono>
#include <cstdint>
#include <span>

namespace pallistrom {

/// The time of a clock that only goes forward.
using Moment = std::chrono::microseconds;

/// A keyboard, by its place in the list of those that are plugged in.
using KeyboardNumber = std::uint8_t;

inline constexpr std::size_t mostKeyboards = 32;

/// One of the virtual devices that stand in for keyboards.
struct Destination {
    enum class Part : std::uint8_t {
        Keyboard,
        Pointer, ///< the second device of a keyboard that is a pointer as well
    };

    KeyboardNumber keyboard = 0;
    Part part = Part::Keyboard;

    friend bool operator==(const Destination&, const Destination&) = default;
};

/// The virtual devices.
class OutputDevices {
public:
    OutputDevices() = default;
    OutputDevices(const OutputDevices&) = delete;
    OutputDevices& operator=(const OutputDevices&) = delete;
    virtual ~OutputDevices() = default;

    /// Sends `events` at once. A device that is not there takes nothing.
    virtual void write(Destination destination, std::span<const input_event> events) = 0;
};

} // namespace pallistrom
