// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11KeyWatch.h"

namespace pallistrom {

X11HeldKeys X11KeyWatch::heldKeys() const {
    return m_devices.answer(m_devices.ask(), m_keyboard.positions());
}

void X11KeyWatch::add(const KeySet& pressed, const KeySet& fired) {
    if (pressed.none() && (fired & ~m_fired).none()) {
        return;
    }
    if (!isWatching()) {
        m_devices.watchReleases(true);
    }
    m_pressed |= pressed;
    m_fired |= fired;
    // They may have been let go before we watched.
    const X11HeldKeys held = heldKeys();
    forget(m_pressed & ~held.real, m_fired & ~held.physical);
}

bool X11KeyWatch::handle(const xcb_generic_event_t& event) {
    const auto release = m_devices.release(event);
    if (release) {
        released(*release);
    }
    return release.has_value();
}

void X11KeyWatch::released(const X11KeyRelease& release) {
    const auto key = m_keyboard.positions().evdevCode(release.keycode);
    if (!key) {
        return;
    }
    KeySet keys;
    keys.set(*key);
    const bool isReal = release.source == X11KeyRelease::Source::RealKeyboard;
    KeySet pressed = isReal ? m_pressed & keys : KeySet();
    if (pressed.any()) {
        // If we come late, it may be held for the next shortcut, whose modifier we would take away.
        pressed &= ~heldKeys().real;
    }
    forget(pressed, m_fired & keys);
}

void X11KeyWatch::forget(const KeySet& pressed, const KeySet& fired) {
    m_sender.release(pressed, m_keyboard.positions());
    const bool wasWatching = isWatching();
    m_pressed &= ~pressed;
    m_fired &= ~fired;
    if (wasWatching && !isWatching()) {
        m_devices.watchReleases(false);
    }
}

void X11KeyWatch::stop() {
    forget(m_pressed, m_fired);
}

} // namespace pallistrom
