// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "XConnection.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace pallistrom::e2e {

/// The keyboard that a virtual X server has of its own, with somebody at it: programs cannot tell
/// it from one that is plugged in. Its keys are those of a US keyboard, wherever a layout puts
/// letters. Throws std::runtime_error for a key that it does not have.
class DeviceKeyboard {
public:
    explicit DeviceKeyboard(const std::string& display);

    /// As those of Keys. A key may also go by its number.
    void play(std::string_view script) const;
    void press(const std::string& chord) const;

    /// Types letters, spaces and full stops.
    void type(std::string_view text) const;

private:
    void send(bool isPress, std::string_view key) const;
    /// Waits until the server has the keys.
    void sync() const;

    XConnection m_connection;
    std::uint8_t m_device = 0;
};

} // namespace pallistrom::e2e
