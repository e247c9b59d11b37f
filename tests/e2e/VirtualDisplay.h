// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "Home.h"
#include "XServer.h"

#include <string>
#include <vector>

namespace pallistrom::e2e {

/// A display that nobody sees, with a window manager. Held keys repeat after 400 ms, every 30 ms.
/// Throws std::runtime_error if it does not come up.
class VirtualDisplay {
public:
    /// `serverArguments` are added to the usual ones.
    explicit VirtualDisplay(const std::vector<std::string>& serverArguments = {});

    /// The display to which programs connect.
    const std::string& name() const { return m_server.name(); }

private:
    ChildProcess startWindowManager() const;

    Home m_home;
    XServer m_server;
    ChildProcess m_windowManager;
};

} // namespace pallistrom::e2e
