// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/bus/BusGuard.h"
#include "service/bus/Handles.h"
#include "service/polkit/Authority.h"
#include "service/session/LoginWatch.h"

#include <functional>
#include <memory>

namespace pallistrom {

/// The service's connection to the system itself: the login manager and the authority. It has no
/// name on the bus and serves no calls, so whoever floods the service's other connection does not
/// make it deaf to a screen that locks or a session that ends.
class SystemSide {
public:
    /// Nobody but the owner may destroy a SystemSide, and not while one of these is called.
    struct Receiver {
        std::function<void(const LoginState& login)> loginChanged;
        std::function<void()> lost; ///< the connection is over
    };

    /// `loop` outlives this.
    SystemSide(sd_event* loop, int priority, Receiver receiver);

    ~SystemSide() = default;
    SystemSide(const SystemSide&) = delete;
    SystemSide& operator=(const SystemSide&) = delete;

    /// Returns a negative errno if there is no bus.
    [[nodiscard]] int open();

    [[nodiscard]] Authority& authority() const { return *m_authority; }

private:
    sd_event* m_loop;
    int m_priority;
    Receiver m_receiver;
    OwnedBus m_bus; // Before whatever has slots on it.
    std::unique_ptr<BusGuard> m_guard;
    std::unique_ptr<Authority> m_authority;
    std::unique_ptr<LoginWatch> m_login;
};

} // namespace pallistrom
