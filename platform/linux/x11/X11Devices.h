// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/KeySet.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11KeyPositions.h"

#include <xcb/xinput.h>

#include <cstdint>
#include <optional>
#include <vector>

namespace pallistrom {

/// Which keys are down, by who says so.
struct X11HeldKeys {
    /// Those that are down on a real keyboard. The core key map does not know: it takes a key for
    /// up that we have released for the time of a chord.
    KeySet real;
    /// Those and the ones that other programs hold down through XTEST.
    KeySet physical;
    /// Those that windows have been shown as down: the core key map.
    KeySet shown;
    /// Those that the server believes to be down on the keyboard of XTEST, and nowhere else. A key
    /// that was pressed again there, and then let go on its real keyboard, stays so.
    KeySet forgotten;
};

/// A key that has gone up on one of the keyboards.
struct X11KeyRelease {
    enum class Source : std::uint8_t { RealKeyboard, XTest };

    xcb_keycode_t keycode = 0;
    Source source = Source::RealKeyboard;
};

/// The keyboards behind the X server's one keyboard.
class X11Devices {
public:
    /// Reads the list of devices and asks to be told when it changes.
    explicit X11Devices(const X11Connection& connection);

    /// Returns whether `event` says that the list of devices has changed.
    [[nodiscard]] bool isChange(const xcb_generic_event_t& event) const;

    /// Reads the list of devices again.
    void refresh();

    /// A question to every keyboard, sent and not yet answered. It is answered as of the moment in
    /// which the server comes to it among our other requests.
    struct Question {
        xcb_query_keymap_cookie_t shown{};
        std::vector<xcb_input_query_device_state_cookie_t> real;
        std::vector<xcb_input_query_device_state_cookie_t> made; ///< the keyboards of XTEST
    };

    /// Asks which keys are down. Each question is answered once.
    [[nodiscard]] Question ask() const;
    [[nodiscard]] X11HeldKeys answer(const Question& question,
                                     const X11KeyPositions& positions) const;

    /// Asks to be told, or no longer, when a key goes up. Nothing else is told: no press, and not
    /// to whom a key goes.
    void watchReleases(bool watch);

    /// Returns the key that has gone up, if that is what `event` says.
    [[nodiscard]] std::optional<X11KeyRelease> release(const xcb_generic_event_t& event) const;

    /// Returns whether these are the devices of an X server inside a Wayland session, which sees
    /// only the keys of its own windows.
    [[nodiscard]] static bool areOfXWayland(const X11Connection& connection);

private:
    [[nodiscard]] bool isOfType(const xcb_generic_event_t& event, std::uint16_t type) const;
    void select(std::uint16_t devices, std::uint32_t events);

    const X11Connection& m_connection;
    std::uint8_t m_opcode = 0; ///< the input extension's
    std::vector<std::uint16_t> m_keyboards;
    std::vector<std::uint16_t> m_testKeyboards; ///< those of XTEST
};

} // namespace pallistrom
