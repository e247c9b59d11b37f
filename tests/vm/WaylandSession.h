// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "Deadline.h"
#include "TemporaryFolder.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace pallistrom::vm {

/// A desktop on the emulated machine's screen and keyboards: sway, for a user who is nobody. Throws
/// std::runtime_error if it does not come up.
class WaylandSession {
public:
    enum class XServer : std::uint8_t { No, WhenNeeded };

    explicit WaylandSession(XServer xServer = XServer::No);
    WaylandSession(const WaylandSession&) = delete;
    WaylandSession& operator=(const WaylandSession&) = delete;
    ~WaylandSession();

    /// Whose session it is, as the system numbers users.
    static std::string user();

    /// Returns how to run a program in the session.
    [[nodiscard]] Command command(const std::vector<std::string>& arguments) const;

    /// Where sway's sockets are.
    [[nodiscard]] std::filesystem::path runtimeFolder() const { return m_home.path() / "runtime"; }

    /// What programs of the session are to be patient for: the machine is a slow one.
    static Deadline patience() { return Deadline{std::chrono::minutes{5}}; }

private:
    ChildProcess startSeat();
    ChildProcess startSway(XServer xServer);
    [[nodiscard]] std::map<std::string, std::string> environment() const;

    TemporaryFolder m_home;
    std::string m_display; ///< as the next two, known once sway is through
    std::string m_socket;
    std::string m_xDisplay;
    ChildProcess m_seat;
    ChildProcess m_sway;
};

/// Presses keys of the machine's own keyboard, or whatever else vm-hw can do.
void useHardware(const std::vector<std::string>& command);

} // namespace pallistrom::vm
