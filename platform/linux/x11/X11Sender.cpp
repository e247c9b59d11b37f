// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Sender.h"

#include <xcb/xtest.h>

#include <algorithm>
#include <array>

namespace pallistrom {

X11Sender::X11Sender(const X11Connection& connection) : m_connection(connection) {
    // libxcb finds out the number of an extension, and waits for it, with the first request of it.
    xcbReply(
        m_connection.get(),
        xcb_test_get_version(m_connection.get(), XCB_TEST_MAJOR_VERSION, XCB_TEST_MINOR_VERSION),
        xcb_test_get_version_reply);
}

void X11Sender::send(const std::vector<OutputStep>& steps,
                     const X11KeyPositions& positions,
                     const std::vector<xcb_keycode_t>& repeating) {
    // The server repeats the last key that was pressed and is one to repeat. For as long as this
    // takes, ours are none.
    setAutoRepeat(repeating, XCB_AUTO_REPEAT_MODE_OFF);
    for (const OutputStep& step : steps) {
        const auto keycode = positions.keycode(step.key);
        if (!keycode) {
            continue;
        }
        if (step.kind == OutputStep::Kind::Press) {
            m_presses.push_back({.sequence = fake(XCB_KEY_PRESS, *keycode), .keycode = *keycode});
        } else if (step.kind == OutputStep::Kind::Release) {
            fake(XCB_KEY_RELEASE, *keycode);
        }
    }
    setAutoRepeat(repeating, XCB_AUTO_REPEAT_MODE_ON);
}

std::vector<xcb_keycode_t> X11Sender::repeatingKeycodes(const std::vector<OutputStep>& steps,
                                                        const X11KeyPositions& positions) const {
    std::vector<xcb_keycode_t> keycodes;
    const auto control = xcbReply(m_connection.get(),
                                  xcb_get_keyboard_control(m_connection.get()),
                                  xcb_get_keyboard_control_reply);
    for (const OutputStep& step : steps) {
        const auto keycode = positions.keycode(step.key);
        if (control && keycode && step.kind == OutputStep::Kind::Press &&
            hasKeycode(control->auto_repeats, *keycode)) {
            keycodes.push_back(*keycode);
        }
    }
    return keycodes;
}

void X11Sender::release(const KeySet& keys, const X11KeyPositions& positions) const {
    forEachKey(keys, [&](EvdevCode key) {
        if (const auto keycode = positions.keycode(key)) {
            fake(XCB_KEY_RELEASE, *keycode);
        }
    });
}

void X11Sender::replay(xcb_keycode_t keycode, bool isDown) const {
    if (isDown) {
        // The server takes no second press of a key that it has as down.
        fake(XCB_KEY_RELEASE, keycode);
        fake(XCB_KEY_PRESS, keycode);
    } else {
        fake(XCB_KEY_PRESS, keycode);
        fake(XCB_KEY_RELEASE, keycode);
    }
}

// Every event says which of our requests the server had come to, and they arrive in order.
bool X11Sender::hasSent(const xcb_generic_event_t& event) {
    const auto isBefore = [&event](const Press& press) {
        return static_cast<std::int32_t>(press.sequence - event.full_sequence) < 0;
    };
    const auto first = std::find_if_not(m_presses.begin(), m_presses.end(), isBefore);
    m_presses.erase(m_presses.begin(), first);
    return event.response_type == XCB_KEY_PRESS && !m_presses.empty() &&
           m_presses.front().sequence == event.full_sequence &&
           m_presses.front().keycode ==
               reinterpret_cast<const xcb_key_press_event_t&>(event).detail;
}

std::uint32_t X11Sender::fake(std::uint8_t type, xcb_keycode_t keycode) const {
    return xcb_test_fake_input(
               m_connection.get(), type, keycode, XCB_CURRENT_TIME, m_connection.root(), 0, 0, 0)
        .sequence;
}

void X11Sender::setAutoRepeat(const std::vector<xcb_keycode_t>& keycodes,
                              xcb_auto_repeat_mode_t mode) const {
    for (const xcb_keycode_t keycode : keycodes) {
        const std::array<std::uint32_t, 2> values{keycode, mode};
        xcb_change_keyboard_control(
            m_connection.get(), XCB_KB_KEY | XCB_KB_AUTO_REPEAT_MODE, values.data());
    }
}

} // namespace pallistrom
