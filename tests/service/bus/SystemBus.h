// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "TemporaryFolder.h"

#include <filesystem>
#include <optional>
#include <string>

namespace pallistrom {

/// A bus of the test's own that everything in this process takes for the system's. Throws
/// std::runtime_error if it does not come up.
class SystemBus {
public:
    /// Anybody may own any name and call anybody.
    SystemBus();

    /// By default nobody may own a name or call anybody, as on the real one; the file `policy`
    /// makes exceptions.
    explicit SystemBus(const std::filesystem::path& policy);

    SystemBus(const SystemBus&) = delete;
    SystemBus& operator=(const SystemBus&) = delete;
    ~SystemBus();

    /// Ends it as a power cut would.
    void stop();

    /// Starts it again where it was.
    void start();

private:
    void configure(const std::string& rules);

    TemporaryFolder m_folder;
    std::optional<ChildProcess> m_process;
};

} // namespace pallistrom
