// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <libevdev/libevdev-uinput.h>
#include <linux/input.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace pallistrom {

/// A keyboard that somebody types on, and the one that comes out at the other end.
class TestKeyboard {
public:
    /// Makes the keyboard; throws std::system_error.
    explicit TestKeyboard(std::string name);
    TestKeyboard(const TestKeyboard&) = delete;
    TestKeyboard& operator=(const TestKeyboard&) = delete;
    ~TestKeyboard();

    /// Its event node.
    [[nodiscard]] std::string path() const;

    /// Waits for a device of the same name, and opens it. Returns whether it came in time.
    bool findOutput(std::chrono::seconds patience);

    /// Sends a frame with one key.
    void send(std::uint16_t key, std::int32_t value) const;

    /// Returns the next key that comes out; nothing if none does in time. Repeats are left out.
    std::optional<input_event> next(std::chrono::milliseconds patience);

private:
    [[nodiscard]] int openOutput() const;

    struct Destroyer {
        void operator()(libevdev_uinput* device) const { libevdev_uinput_destroy(device); }
    };

    std::string m_name;
    std::unique_ptr<libevdev_uinput, Destroyer> m_keyboard;
    int m_output = -1;
};

} // namespace pallistrom
