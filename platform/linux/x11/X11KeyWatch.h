// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/KeySet.h"
#include "platform/linux/x11/X11Devices.h"
#include "platform/linux/x11/X11Keyboard.h"
#include "platform/linux/x11/X11Sender.h"

#include <xcb/xcb.h>

namespace pallistrom {

/// Waits for keys to go up: for those that have to be let go of then, and those whose presses are
/// repeats until then. Hears of releases only while there are such keys.
class X11KeyWatch {
public:
    /// All of these outlive the watch.
    X11KeyWatch(X11Devices& devices, const X11Sender& sender, const X11Keyboard& keyboard)
        : m_devices(devices), m_sender(sender), m_keyboard(keyboard) {}

    /// Returns which keys are down.
    [[nodiscard]] X11HeldKeys heldKeys() const;

    /// Begins to wait for modifiers that a chord has `pressed` while they were held, and for keys
    /// that have `fired`. Those that are up by now are done with at once.
    void add(const KeySet& pressed, const KeySet& fired);

    /// Returns whether `key` has fired and not gone up since: another press of it is a repeat.
    [[nodiscard]] bool hasFired(EvdevCode key) const { return m_fired[key]; }

    /// Returns whether `event` says that a key has gone up, and has seen to it.
    [[nodiscard]] bool handle(const xcb_generic_event_t& event);

    /// Lets go of all that chords have pressed. Nobody would do so later, once the fingers have.
    void stop();

private:
    void released(const X11KeyRelease& release);
    void forget(const KeySet& pressed, const KeySet& fired);

    [[nodiscard]] bool isWatching() const { return (m_pressed | m_fired).any(); }

    X11Devices& m_devices;
    const X11Sender& m_sender;
    const X11Keyboard& m_keyboard;
    /// Such a key is down on two keyboards: its own, and that of XTEST, where nobody but us will
    /// let go of it.
    KeySet m_pressed;
    KeySet m_fired; ///< the server repeats them
};

} // namespace pallistrom
