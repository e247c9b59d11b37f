// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/bus/SystemSide.h"

#include "service/bus/openSystemBus.h"

#include <utility>

namespace pallistrom {

SystemSide::SystemSide(sd_event* loop, int priority, Receiver receiver)
    : m_loop{loop}, m_priority{priority}, m_receiver{std::move(receiver)} {}

int SystemSide::open() {
    if (const int result = openSystemBus(m_bus); result < 0) {
        return result;
    }
    m_guard = std::make_unique<BusGuard>(m_loop, m_bus.get(), m_priority, m_receiver.lost);
    m_authority = std::make_unique<Authority>(m_bus.get());
    m_login = std::make_unique<LoginWatch>(m_bus.get(), m_receiver.loginChanged);
    const int result = m_guard->start();
    return result < 0 ? result : m_login->start();
}

} // namespace pallistrom
