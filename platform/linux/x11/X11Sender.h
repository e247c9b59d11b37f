// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/KeySet.h"
#include "platform/linux/keys/OutputKeys.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11KeyPositions.h"

#include <vector>

namespace pallistrom {

/// Keys that go out through XTEST, to whatever window has the focus.
///
/// What one call sends reaches the server together: nothing but the constructor and
/// repeatingKeycodes() waits for an answer.
class X11Sender {
public:
    /// `connection` outlives the sender.
    explicit X11Sender(const X11Connection& connection);

    /// Sends all of `steps` so that a key which the server repeats, because it is held, goes on
    /// being repeated. `repeating` is what repeatingKeycodes() has said before. Pauses are skipped:
    /// under X11 each key event says which modifiers are held, so there is nothing to wait for.
    void send(const std::vector<OutputStep>& steps,
              const X11KeyPositions& positions,
              const std::vector<xcb_keycode_t>& repeating);

    /// Returns the keycodes of the keys in `steps` that the server would repeat if they were held.
    [[nodiscard]] std::vector<xcb_keycode_t>
    repeatingKeycodes(const std::vector<OutputStep>& steps, const X11KeyPositions& positions) const;

    /// Sends a release of each of `keys`.
    void release(const KeySet& keys, const X11KeyPositions& positions) const;

    /// Sends a press to a window that has not seen that of the key itself. If the key is still
    /// down, as far as `isDown` says, its own release ends it.
    void replay(xcb_keycode_t keycode, bool isDown) const;

    /// Returns whether `event` is a press of those that send() has sent. Asked of every event in
    /// its turn.
    [[nodiscard]] bool hasSent(const xcb_generic_event_t& event);

private:
    struct Press {
        std::uint32_t sequence = 0; ///< the number of the request
        xcb_keycode_t keycode = 0;
    };

    /// Returns the number of the request.
    std::uint32_t fake(std::uint8_t type, xcb_keycode_t keycode) const;
    void setAutoRepeat(const std::vector<xcb_keycode_t>& keycodes,
                       xcb_auto_repeat_mode_t mode) const;

    const X11Connection& m_connection;
    std::vector<Press> m_presses; ///< the oldest first; none that no event can come of any more
};

} // namespace pallistrom
