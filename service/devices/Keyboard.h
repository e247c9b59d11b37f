// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/devices/KeyStream.h"
#include "service/devices/KeyboardDevice.h"

#include <cstdint>
#include <memory>

namespace pallistrom {

// What becomes of a keyboard. At rest: none of its keys is down.
//
//     Free      nobody wants it, or it is not ready
//     Awaited   is to be grabbed at rest; what it sends is looked at for that alone
//     Grabbed   what it sends goes to the stream; is let go at rest once nobody wants it any more
//     Busy      another program has it; asked again when it is wanted again
//     Gone      unplugged
//
//     Free     wanted, at rest       ->  Grabbed
//     Free     wanted                ->  Awaited
//     Awaited  at rest               ->  Grabbed, or Busy
//     Awaited  not wanted            ->  Free
//     Busy     not wanted            ->  Free
//     Grabbed  not wanted, at rest   ->  Free
//     Grabbed  panic                 ->  Free, at rest or not
//     any      unplugged             ->  Gone

/// One keyboard that is plugged in: grabs its device and lets it go, each while no key is down, and
/// keeps the stream told. Programs count presses and releases of each device, so a key whose press
/// they saw of one device and whose release of another would stay down for them.
class Keyboard {
public:
    /// What a call has shown.
    enum class News : std::uint8_t {
        None,
        Unplugged,
        Panic, ///< the panic chord is down
    };

    Keyboard(std::unique_ptr<KeyboardDevice> device, KeyboardNumber number, KeyStream& stream);

    /// Says whether it is to be grabbed.
    News setWanted(bool wanted);

    /// To be called when the device has become ready, or may no longer be busy.
    News tryAgain();

    /// Takes what has come in.
    News serve();

    /// To be called when nothing of the stream waits any more: it may have been held up by that.
    News streamIsIdle();

    /// Asks what is held, once all that has come in is taken.
    News catchUp();

    void letGoAtOnce();

    [[nodiscard]] bool isGrabbed() const { return m_state == State::Grabbed; }

    [[nodiscard]] KeyboardDevice& device() { return *m_device; }

private:
    enum class State : std::uint8_t {
        Free,
        Awaited,
        Grabbed,
        Busy,
        Gone,
    };

    News begin();
    News look();
    News grab();
    News takeAwaited(const KeyboardDevice::Reading& reading);
    News takeGrabbed(const KeyboardDevice::Reading& reading);
    News take(const input_event& event);
    News letGoAtRest();
    News gone();
    void become(State state);

    std::unique_ptr<KeyboardDevice> m_device;
    KeyboardNumber m_number;
    KeyStream& m_stream;
    State m_state = State::Free;
    bool m_isWanted = false;
    bool m_saidBusy = false;
    KeySet m_down; ///< keys and buttons; known while Awaited or Grabbed
};

} // namespace pallistrom
