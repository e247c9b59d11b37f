// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "Home.h"
#include "XServer.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom::e2e {

/// Where the key presses of a test come from, as the programs on the display see it.
enum class Keyboard {
    Faked,  ///< the server's XTEST device, which programs that make up key presses use as well
    Device, ///< a keyboard of its own, like those that people have
};

void PrintTo(Keyboard keyboard, std::ostream* out);

/// A display that nobody sees, with a window manager. Held keys repeat after 400 ms, every 30 ms.
/// Throws std::runtime_error if it does not come up.
class VirtualDisplay {
public:
    /// `serverArguments` are added to those of the server to which programs connect.
    explicit VirtualDisplay(Keyboard keyboard,
                            const std::vector<std::string>& serverArguments = {});

    /// The display to which programs connect.
    const std::string& name() const { return m_server.name(); }

    /// The display on which to press keys so that they come from the chosen keyboard.
    const std::string& keyboardName() const { return m_outer ? m_outer->name() : name(); }

private:
    XServer startServer(Keyboard keyboard, const std::vector<std::string>& arguments) const;
    ChildProcess startWindowManager() const;

    Home m_home;
    std::optional<XServer> m_outer; ///< shows the server as a window, for Keyboard::Device
    XServer m_server;
    ChildProcess m_windowManager;
};

} // namespace pallistrom::e2e
