// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/devices/OutputDevices.h"

#include <array>
#include <cstddef>
#include <optional>

namespace pallistrom {

/// Events on their way to the virtual devices, in one order for all of them. A pause holds up what
/// comes after it, and nothing else ever waits.
///
/// A pause asks for time since the last key: where that has passed anyway, there is none. Time is
/// told, not taken. Nothing is allocated.
class OutputQueue {
public:
    /// What programs need that learn of modifiers and of keys by different roads.
    static constexpr Moment pauseLength{12'000};

    explicit OutputQueue(OutputDevices& devices) : m_devices(devices) {}

    /// Says what time it is until the next call.
    void setNow(Moment now) { m_now = now; }

    void add(Destination destination, std::uint16_t type, std::uint16_t code, std::int32_t value);

    /// What is added from now on keeps its distance from the keys before it.
    void pause();

    /// Sends what need not wait. To be called at the end of each turn.
    void flush();

    /// Sends everything, pauses or not.
    void flushAll();

    /// Returns whether events wait behind a pause.
    [[nodiscard]] bool isWaiting() const { return m_count > 0; }

    /// Returns when the next flush() sends something that waits.
    [[nodiscard]] std::optional<Moment> due() const;

private:
    struct Item {
        Destination destination;
        bool isPause = false;
        std::uint16_t type = 0;
        std::uint16_t code = 0;
        std::int32_t value = 0;
    };

    void queue(const Item& item);
    void send(const Item& item);
    void sendAllQueued();
    void write();

    OutputDevices& m_devices;
    Moment m_now{0};
    Moment m_lastKey = -pauseLength; ///< when the last key was sent
    Moment m_blockedUntil{0};

    static constexpr std::size_t room = 1024;
    std::array<Item, room> m_ring;
    std::size_t m_first = 0;
    std::size_t m_count = 0;

    /// What goes out with the next write, all to one device.
    Destination m_batchDestination;
    std::array<input_event, 128> m_batch{};
    std::size_t m_batchCount = 0;
};

} // namespace pallistrom
