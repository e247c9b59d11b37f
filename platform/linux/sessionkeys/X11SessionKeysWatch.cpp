// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sessionkeys/X11SessionKeysWatch.h"

#include "platform/linux/x11/X11Events.h"

#include <utility>

namespace pallistrom {

X11SessionKeysWatch::X11SessionKeysWatch(std::unique_ptr<X11Connection> connection,
                                         std::function<void()> whenChanged)
    : m_connection(std::move(connection)),
      m_whenChanged(std::move(whenChanged)),
      m_keyboard(*m_connection),
      m_watch(watchDescriptor(m_connection->descriptor(), [this] { serve(); })) {
    look();
}

void X11SessionKeysWatch::look() {
    while (takeX11Events(*m_connection,
                         [this](const auto& event) { return m_keyboard.isChange(event); })) {
        const X11Keyboard keyboard(*m_connection);
        // What a server that is going away did not answer is no keyboard.
        if (m_connection->isAlive()) {
            m_keyboard = keyboard;
        }
    }
}

void X11SessionKeysWatch::serve() {
    const ModifierTable before = modifiers();
    look();
    if (!m_connection->isAlive()) {
        m_watch.reset();
    }
    if (!(modifiers() == before)) {
        m_whenChanged();
    }
}

} // namespace pallistrom
