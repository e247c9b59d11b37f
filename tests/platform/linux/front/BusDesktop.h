// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "SessionBus.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace pallistrom {

/// A real desktop shell on a screen that nobody sees, on the bus of a test, and the windows on it.
/// Throws std::runtime_error if it does not come up.
class BusDesktop {
public:
    /// Starts KWin, without any of the rest of its desktop.
    static BusDesktop kwin(const e2e::SessionBus& bus);

    /// Starts GNOME Shell. It finds extensions below `dataFolder`.
    static BusDesktop gnomeShell(const e2e::SessionBus& bus,
                                 const std::filesystem::path& dataFolder);

    /// Ends it.
    void end();

    /// Opens a window of an application that is called so.
    [[nodiscard]] ChildProcess openWindow(const std::string& application) const;

private:
    BusDesktop(const e2e::SessionBus& bus,
               std::vector<std::string> arguments,
               std::map<std::string, std::string> environment);

    const e2e::SessionBus& m_bus;
    ChildProcess m_process;
};

} // namespace pallistrom
