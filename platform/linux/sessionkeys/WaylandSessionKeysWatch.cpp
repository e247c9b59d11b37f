// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sessionkeys/WaylandSessionKeysWatch.h"

#include "platform/linux/sessionkeys/Keymap.h"
#include "platform/linux/sessionkeys/KeymapModifiers.h"

#include <utility>

namespace pallistrom {

WaylandSessionKeysWatch::WaylandSessionKeysWatch(std::function<void()> whenChanged)
    : m_whenChanged(std::move(whenChanged)), m_client(*this) {}

void WaylandSessionKeysWatch::globalCame(wl_registry* registry, const WaylandGlobal& global) {
    if (global.interface == "wl_seat") {
        m_seats.insert_or_assign(
            global.name,
            std::make_unique<SeatKeymap>(
                registry, global.name, global.version, [this](const std::string& text) {
                    m_text = text;
                }));
    }
}

void WaylandSessionKeysWatch::globalGone(std::uint32_t name) {
    m_seats.erase(name);
}

// Only the last of the keymaps that came at once is read, which takes some milliseconds.
void WaylandSessionKeysWatch::served() {
    const std::string text = std::exchange(m_text, {});
    const auto keymap = Keymap::read(text);
    if (!keymap) {
        return;
    }
    const ModifierTable modifiers = modifiersOf(*keymap);
    if (!(modifiers == m_modifiers)) {
        m_modifiers = modifiers;
        m_whenChanged();
    }
}

void WaylandSessionKeysWatch::lost() {
    m_seats.clear();
}

} // namespace pallistrom
