// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "Home.h"
#include "Keyboard.h"
#include "XServer.h"

#include <string>
#include <vector>

namespace pallistrom::e2e {

/// A display that nobody sees, with a window manager. Held keys repeat after 400 ms, every 30 ms.
/// Throws std::runtime_error if it does not come up.
class VirtualDisplay {
public:
    /// `keyboard` is the one that is used on it.
    explicit VirtualDisplay(Keyboard keyboard,
                            const std::vector<std::string>& serverArguments = {});

    /// The display to which programs connect.
    const std::string& name() const { return m_server.name(); }

    Keyboard keyboard() const { return m_keyboard; }

private:
    ChildProcess startWindowManager() const;

    Keyboard m_keyboard;
    Home m_home;
    XServer m_server;
    ChildProcess m_windowManager;
};

} // namespace pallistrom::e2e
