// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace pallistrom::vm {

/// The service as systemd runs it, with the real bus, login manager and authority. Two people work
/// at the machine, each on a terminal of their own: the first one is in front, and whenever she is
/// the authority grants what she asks for; the second one is never granted anything.
///
/// Throws std::runtime_error if any of it does not come up.
class InstalledService {
public:
    enum class Person : uid_t { First = 2001, Second = 2002 };

    /// Returns whether systemd runs here at all.
    [[nodiscard]] static bool isPossible();

    /// Installs the service and lets both people log in.
    InstalledService();

    /// Starts what a desktop program of somebody does.
    [[nodiscard]] static ChildProcess desktopOf(Person person);

    /// Calls a method of the service for somebody. Returns the answer, as busctl(1) prints it.
    [[nodiscard]] static std::string answerTo(Person person, const std::string& method);

    /// Whose terminal is in front from now on.
    static void bringToFront(Person person);

    /// Returns what systemd says of the service.
    [[nodiscard]] static std::string property(const std::string& name);

    /// Returns the service's process; 0 if there is none.
    [[nodiscard]] static pid_t process();

    /// Prints what the system's log has to say about all this.
    static void printLog();
};

/// Runs a program that is installed. Throws std::runtime_error unless it succeeds.
void mustRun(const std::vector<std::string>& arguments);

} // namespace pallistrom::vm
