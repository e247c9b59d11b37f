// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "TemporaryFolder.h"

#include <optional>
#include <string>

namespace pallistrom {

/// A message bus of the test's own that stands in for the system bus of this process, where it is
/// found from now on. Throws std::runtime_error if it does not come up.
class PrivateBus {
public:
    PrivateBus();

    /// Ends the bus, and brings up one at the same place again.
    void end() { m_process.reset(); }

    void start();

    /// Sends the bus a signal, as signal(7) numbers them.
    void signal(int number) { m_process->signal(number); }

    /// Has the bus start `program` for whoever calls `name`, now or later.
    void addService(const std::string& name, const std::string& program) const;

private:
    TemporaryFolder m_folder;
    std::optional<ChildProcess> m_process;
};

} // namespace pallistrom
