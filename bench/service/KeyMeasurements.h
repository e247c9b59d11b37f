// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Latencies.h"
#include "MeasuredService.h"
#include "TestKeyboard.h"

#include <chrono>
#include <cstdint>

namespace pallistrom {

/// What is measured of a program between two keyboards: how long a key takes from when it is sent
/// until the kernel has it on the other keyboard. Each prints one figure a line. Throws
/// std::runtime_error if a key is lost or comes out of order.
class KeyMeasurements {
public:
    /// Both outlive this. Each figure is of so many keys.
    KeyMeasurements(TestKeyboard& keyboard, MeasuredService& service, std::size_t keys)
        : m_keyboard{keyboard}, m_service{service}, m_keys{keys} {}

    /// Types until a key comes out: until then the program has not grabbed the keyboard.
    void warmUp();

    /// Keys that go out as they come.
    void plainKeys(const char* name);

    /// The same, so many a second.
    void plainKeysAtRate(unsigned eachSecond);

    /// As plainKeys(), while others want all of the processor.
    void plainKeysUnderLoad();

    /// Keys faster than they can be passed on.
    void bursts();

    /// One key in place of another.
    void controlW();

    /// Several keys in place of one, with pauses between them: how long beyond the pauses.
    void sequence(const char* name, std::uint16_t modifier, std::uint16_t key);

    /// How often the program wakes up while nobody types.
    void idleness();

private:
    using Moment = std::chrono::steady_clock::time_point;

    Latencies::Time timeOf(std::uint16_t key, std::int32_t value);
    void burst(std::size_t size, Latencies& latencies);
    /// Waits for this event, the next to come out. Returns when it did.
    Moment expect(std::uint16_t key, std::int32_t value);

    TestKeyboard& m_keyboard;
    MeasuredService& m_service;
    std::size_t m_keys;
};

} // namespace pallistrom
