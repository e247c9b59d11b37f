// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/KeyDelivery.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

struct libevdev_uinput;

namespace pallistrom::vm {

/// A keyboard that the kernel takes for a real one, and on which a test types. It is unplugged with
/// this object. Throws std::system_error where no device can be made.
class TestKeyboard {
public:
    /// Who repeats a key that is held.
    enum class Repeats : std::uint8_t { Test, Kernel };

    /// What there is besides keys.
    enum class Extras : std::uint8_t {
        None,
        Lights,
        Pointer, ///< as on a receiver that is a keyboard and a mouse in one
    };

    struct Description {
        std::string name;
        Extras extras = Extras::None;
        Repeats repeats = Repeats::Test;
        std::uint16_t product = 1;
    };

    explicit TestKeyboard(const Description& description);

    /// Sends a key event and says that it was all for now, as a keyboard does.
    void send(EvdevCode key, KeyAction action);

    void press(EvdevCode key) { send(key, KeyAction::Press); }

    void release(EvdevCode key) { send(key, KeyAction::Release); }

    void tap(EvdevCode key);

    /// Sends the releases of all keys that are down.
    void releaseAll();

    /// Sends any event, such as the movement of a pointer, on its own.
    void sendEvent(std::uint16_t type, std::uint16_t code, std::int32_t value);

    /// Its event device.
    [[nodiscard]] std::filesystem::path node() const;

private:
    struct Unplug {
        void operator()(libevdev_uinput* device) const;
    };

    std::unique_ptr<libevdev_uinput, Unplug> m_device;
    KeySet m_down;
};

} // namespace pallistrom::vm
