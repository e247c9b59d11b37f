// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"

#include <string>

namespace pallistrom::e2e {

/// An X server of the tests' own, on a display number that it chooses itself. Throws
/// std::runtime_error if it does not come up.
class XServer {
public:
    /// `command` starts the server; what any test server is told is added to its arguments.
    explicit XServer(Command command);
    XServer(XServer&&) noexcept = default;
    XServer& operator=(XServer&&) noexcept = default;
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    /// Lets the server take its socket and its lock along.
    ~XServer();

    /// The display to which programs connect.
    const std::string& name() const { return m_name; }

private:
    ChildProcess m_process;
    std::string m_name;
};

} // namespace pallistrom::e2e
