// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "TemporaryFolder.h"
#include "WaylandSession.h"

#include <string>
#include <vector>

namespace pallistrom::vm {

/// A terminal in a session of the emulated machine, in which a program writes down what it reads.
/// Throws std::runtime_error if it does not come up.
class SessionTerminal {
public:
    /// `terminal` is a command that takes the program to run, and its arguments, as its last ones.
    SessionTerminal(const WaylandSession& session, std::vector<std::string> terminal);

    /// Waits until the program has read these bytes since it began. Returns all that it has read
    /// then, wanted or not.
    [[nodiscard]] std::string waitFor(const std::string& bytes);

private:
    ChildProcess start(const WaylandSession& session, std::vector<std::string> terminal) const;
    [[nodiscard]] std::string read() const;

    TemporaryFolder m_folder;
    ChildProcess m_process;
};

} // namespace pallistrom::vm
