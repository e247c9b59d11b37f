// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sessionkeys/X11SessionKeysWatch.h"

#include "platform/linux/sessionkeys/KeymapModifiers.h"
#include "platform/linux/sessionkeys/X11Keymap.h"
#include "platform/linux/x11/X11Events.h"

#include <utility>

namespace pallistrom {

X11SessionKeysWatch::X11SessionKeysWatch(std::unique_ptr<X11Connection> connection,
                                         std::function<void()> whenChanged)
    : m_connection(std::move(connection)),
      m_whenChanged(std::move(whenChanged)),
      m_keyboard(*m_connection),
      m_modifiers(readModifiers()),
      m_watch(watchDescriptor(m_connection->descriptor(), [this] { serve(); })) {
    look();
}

ModifierTable X11SessionKeysWatch::readModifiers() const {
    const auto keymap = X11Keymap::read(*m_connection);
    return keymap ? modifiersOf(*keymap) : m_keyboard.modifiers();
}

void X11SessionKeysWatch::look() {
    while (takeX11Events(*m_connection,
                         [this](const auto& event) { return m_keyboard.isChange(event); })) {
        m_keyboard = X11Keyboard(*m_connection);
        const ModifierTable modifiers = readModifiers();
        // What a server that is going away did not answer is no table.
        if (m_connection->isAlive()) {
            m_modifiers = modifiers;
        }
    }
}

void X11SessionKeysWatch::serve() {
    const ModifierTable before = m_modifiers;
    look();
    if (!m_connection->isAlive()) {
        m_watch.reset();
    }
    if (!(m_modifiers == before)) {
        m_whenChanged();
    }
}

} // namespace pallistrom
