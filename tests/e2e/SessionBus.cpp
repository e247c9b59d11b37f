// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "SessionBus.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace pallistrom::e2e {

namespace {

/// As where Pallistrom is installed, so that panels find its icons.
std::map<std::string, std::string> withIcons(std::map<std::string, std::string> environment) {
    environment["XDG_DATA_DIRS"] = PACKAGING_FOLDER ":/usr/local/share:/usr/share";
    return environment;
}

} // namespace

SessionBus::SessionBus(const std::string& display)
    : m_environment{withIcons(m_home.environment(display))},
      m_process{{.arguments = {"dbus-daemon", "--session", "--nofork", "--print-address=1"},
                 .environment = m_environment,
                 .errorFile = m_home.path() / "bus.log"}} {
    const std::optional<std::string> address = m_process.readLine();
    if (!address) {
        throw std::runtime_error{"the session bus does not come up"};
    }
    m_environment["DBUS_SESSION_BUS_ADDRESS"] = *address;
}

void SessionBus::addService(const std::string& name, const std::string& program) const {
    const auto folder = m_home.path() / "data" / "dbus-1" / "services";
    std::filesystem::create_directories(folder);
    std::ofstream{folder / (name + ".service")} << "[D-BUS Service]\nName=" << name
                                                << "\nExec=" << program << '\n';
    if (!call("org.freedesktop.DBus",
              "/org/freedesktop/DBus",
              "org.freedesktop.DBus.ReloadConfig",
              {})) {
        throw std::runtime_error{"the session bus does not read its services again"};
    }
}

bool SessionBus::call(const std::string& name,
                      const std::string& path,
                      const std::string& method,
                      const std::vector<std::string>& arguments) const {
    return answer(name, path, method, arguments).has_value();
}

std::optional<std::string> SessionBus::answer(const std::string& name,
                                              const std::string& path,
                                              const std::string& method,
                                              const std::vector<std::string>& arguments) const {
    Command command{.arguments = {"gdbus",
                                  "call",
                                  "--session",
                                  "--dest",
                                  name,
                                  "--object-path",
                                  path,
                                  "--method",
                                  method},
                    .environment = m_environment,
                    .errorFile = m_home.path() / "calls.log"};
    command.arguments.insert(command.arguments.end(), arguments.begin(), arguments.end());
    ChildProcess process{command};
    const std::string line = process.readLine().value_or("");
    return process.wait() == 0 ? std::optional{line} : std::nullopt;
}

} // namespace pallistrom::e2e
