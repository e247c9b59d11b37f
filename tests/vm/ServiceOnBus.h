// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "SystemBus.h"
#include "TemporaryFolder.h"

#include <optional>
#include <string>
#include <vector>

namespace pallistrom::vm {

/// The keyboard service as it is installed, on a system bus with a login manager and an authority
/// that say what a test wants. One person has the active session, and is granted what they ask for.
/// Throws std::runtime_error if any of them does not come up.
class ServiceOnBus {
public:
    /// `user` is whose session it is: by default the superuser's, as which tests run.
    explicit ServiceOnBus(const std::string& user = "0");

    /// Starts a desktop program, which asks for the grant, switches the tap on with all shortcuts,
    /// and waits.
    void startDesktop();

    [[nodiscard]] ChildProcess& desktop() { return *m_desktop; }

    [[nodiscard]] ChildProcess& service() { return *m_service; }

    void startService();

    void setLocked(bool isLocked) const;

    /// Gives the machine's keyboards to the session, or to nobody's.
    void setActive(bool isActive) const;

private:
    ChildProcess startMock(const std::string& what, const std::string& name) const;

    /// Calls a method of `name`, all as busctl(1) takes it. Returns whether it was answered.
    [[nodiscard]] bool call(const std::vector<std::string>& arguments) const;

    TemporaryFolder m_state;
    SystemBus m_bus;
    ChildProcess m_login;
    ChildProcess m_authority;
    std::optional<ChildProcess> m_service;
    std::optional<ChildProcess> m_desktop;
};

} // namespace pallistrom::vm
