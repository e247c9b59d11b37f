// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sessionkeys/SessionKeysWatch.h"

#include "platform/linux/sessionkeys/WaylandSessionKeysWatch.h"
#include "platform/linux/sessionkeys/X11SessionKeysWatch.h"
#include "platform/linux/wayland/WaylandClient.h"
#include "platform/linux/x11/X11Session.h"

#include <utility>

namespace pallistrom {

namespace {

/// Of a session that nobody can tell anything about.
class StandardKeys final : public SessionKeysWatch {
public:
    [[nodiscard]] const ModifierTable& modifiers() const override { return m_modifiers; }

private:
    ModifierTable m_modifiers = ModifierTable::standard();
};

} // namespace

std::unique_ptr<SessionKeysWatch> SessionKeysWatch::ofSession(std::function<void()> whenChanged) {
    if (auto connection = X11Session::open()) {
        return std::make_unique<X11SessionKeysWatch>(std::move(connection), std::move(whenChanged));
    }
    if (WaylandClient::isWaylandSession()) {
        return std::make_unique<WaylandSessionKeysWatch>(std::move(whenChanged));
    }
    return std::make_unique<StandardKeys>();
}

} // namespace pallistrom
