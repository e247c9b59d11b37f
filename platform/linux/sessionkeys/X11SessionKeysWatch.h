// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/DescriptorWatch.h"
#include "platform/linux/sessionkeys/SessionKeysWatch.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Keyboard.h"

namespace pallistrom {

/// The modifiers of an X11 session, as its server has them. A server that has gone away leaves the
/// last ones.
class X11SessionKeysWatch final : public SessionKeysWatch {
public:
    /// `connection` belongs to the watch alone.
    X11SessionKeysWatch(std::unique_ptr<X11Connection> connection,
                        std::function<void()> whenChanged);

    [[nodiscard]] const ModifierTable& modifiers() const override { return m_keyboard.modifiers(); }

private:
    void look();
    void serve();

    std::unique_ptr<X11Connection> m_connection;
    std::function<void()> m_whenChanged;
    X11Keyboard m_keyboard;
    std::unique_ptr<DescriptorWatch> m_watch;
};

} // namespace pallistrom
