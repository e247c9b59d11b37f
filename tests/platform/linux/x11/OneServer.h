// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Environment.h"
#include "Tools.h"
#include "XConnection.h"
#include "XServer.h"

#include <optional>
#include <string>

namespace pallistrom {

/// An X server of the test's own, which is this process's display from now on.
class OneServer {
public:
    /// Returns what is missing here for one, if anything.
    static std::string missing() { return e2e::missingPrograms({"Xvfb", "setxkbmap"}); }

    OneServer()
        : m_server(std::in_place,
                   Command{.arguments = {"Xvfb", "-screen", "0", "300x200x24"},
                           .environment = {{"PATH", Environment::value("PATH")}}}) {
        Environment::unset("WAYLAND_DISPLAY");
        Environment::set("DISPLAY", m_server->name());
        connection.emplace(m_server->name());
    }

    [[nodiscard]] const std::string& name() const { return m_server->name(); }

    void end() {
        connection.reset();
        m_server.reset();
    }

    /// Somebody else's, which keeps the server from starting anew when the first one leaves.
    std::optional<e2e::XConnection> connection;

private:
    std::optional<e2e::XServer> m_server;
};

} // namespace pallistrom
