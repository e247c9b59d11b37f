// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "Home.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom::e2e {

/// A session bus of the test's own, with a home folder for the programs on it. What the bus starts
/// shares its output. Throws std::runtime_error if it does not come up.
class SessionBus {
public:
    /// `display` is where the programs that the bus starts find a screen.
    explicit SessionBus(const std::string& display);

    const Home& home() const { return m_home; }

    /// The environment of a program on the bus and on the display.
    const std::map<std::string, std::string>& environment() const { return m_environment; }

    /// Has the bus start `program` for whoever calls `name`.
    void addService(const std::string& name, const std::string& program) const;

    /// Calls a method of `name` as gdbus(1) takes arguments. Returns whether it was answered.
    [[nodiscard]] bool call(const std::string& name,
                            const std::string& path,
                            const std::string& method,
                            const std::vector<std::string>& arguments) const;

    /// The same. Returns the answer as gdbus(1) writes it, in one line; nothing if there is none.
    [[nodiscard]] std::optional<std::string>
    answer(const std::string& name,
           const std::string& path,
           const std::string& method,
           const std::vector<std::string>& arguments) const;

    /// The next line of the output of what the bus has started.
    [[nodiscard]] std::optional<std::string> readLine() { return m_process.readLine(); }

private:
    Home m_home;
    std::map<std::string, std::string> m_environment;
    ChildProcess m_process;
};

} // namespace pallistrom::e2e
