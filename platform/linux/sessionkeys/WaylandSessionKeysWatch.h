// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/sessionkeys/SeatKeymap.h"
#include "platform/linux/sessionkeys/SessionKeysWatch.h"
#include "platform/linux/wayland/WaylandClient.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace pallistrom {

/// The modifiers of a Wayland session, by the keymap that its compositor gives to every client. A
/// keymap that cannot be read, and a compositor that has gone away, leave the last ones. Where
/// there are several seats or keyboards with keymaps of their own, the one given last counts, which
/// is that of the keyboard in use.
class WaylandSessionKeysWatch final : public SessionKeysWatch, private WaylandListener {
public:
    explicit WaylandSessionKeysWatch(std::function<void()> whenChanged);

    [[nodiscard]] const ModifierTable& modifiers() const override { return m_modifiers; }

private:
    void globalCame(wl_registry* registry, const WaylandGlobal& global) override;
    void globalGone(std::uint32_t name) override;
    void served() override;
    void lost() override;

    std::function<void()> m_whenChanged;
    ModifierTable m_modifiers = ModifierTable::standard();
    std::string m_text; ///< of a keymap that has come and has not been read yet
    // Goes after the objects that were made on it.
    WaylandClient m_client;
    std::map<std::uint32_t, std::unique_ptr<SeatKeymap>> m_seats;
};

} // namespace pallistrom
