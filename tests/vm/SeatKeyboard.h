// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FileDescriptor.h"
#include "platform/linux/keys/KeyDelivery.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom::vm {

/// A key event as a session gets it.
struct SeenEvent {
    std::uint16_t type = 0;
    EvdevCode code = 0;
    std::int32_t value = 0;
    std::chrono::nanoseconds time{}; ///< of the steady clock
    /// When it was read. The kernel's time may be that of an earlier moment at which it only told a
    /// program that its queue was thrown away.
    std::chrono::nanoseconds read{};
    std::filesystem::path node; ///< of the device that sent it
};

/// One input device that a session reads.
class SeatKeyboard {
public:
    /// None if there is no such device, or it has another name.
    static std::optional<SeatKeyboard> open(const std::filesystem::path& node,
                                            const std::string& name);

    [[nodiscard]] int descriptor() const { return m_descriptor.get(); }

    [[nodiscard]] const std::filesystem::path& node() const { return m_node; }

    /// Adds to `events` what waits to be read. Returns whether the device is still there: what was
    /// down on one that is gone has been released.
    bool read(std::vector<SeenEvent>& events);

    /// The keys that are down on it, as far as it was read.
    [[nodiscard]] const KeySet& down() const { return m_down; }

    /// Whether the device has sent more than was read in time.
    [[nodiscard]] bool hasOverflowed() const { return m_hasOverflowed; }

private:
    SeatKeyboard(FileDescriptor descriptor, std::filesystem::path node);

    void releaseAll(std::vector<SeenEvent>& events);

    FileDescriptor m_descriptor;
    std::filesystem::path m_node;
    KeySet m_down;
    bool m_hasOverflowed = false;
};

} // namespace pallistrom::vm
