// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"

#include <string>
#include <vector>

namespace pallistrom::vm {

/// A program that has the service's keyboards and obeys a test, line by line.
class KeyboardHost {
public:
    /// `command` is a program that lies where the tests do, and its arguments.
    explicit KeyboardHost(const std::string& command);

    /// Has it obey a command, and waits until it has. Throws std::runtime_error if it does not.
    void tell(const std::string& command);

    /// The process.
    [[nodiscard]] ChildProcess& process() { return m_process; }

private:
    ChildProcess m_process;
};

} // namespace pallistrom::vm
