// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "SessionProgram.h"

#include "Environment.h"
#include "SettingsFile.h"
#include "pallistrom/Names.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace pallistrom::vm {

namespace {

constexpr const char* address = "DBUS_SYSTEM_BUS_ADDRESS";

// As the switch in the access pane does it, for the person whose session it is.
void requestGrant(const WaylandSession& session) {
    const std::string name{Names::keyboardBusName};
    ChildProcess call{session.command({"busctl",
                                       "--address=" + Environment::value(address),
                                       "call",
                                       name,
                                       std::string{Names::keyboardObject},
                                       name,
                                       "RequestGrant"})};
    if (call.wait(WaylandSession::patience()) != 0) {
        throw std::runtime_error{"the grant is not given"};
    }
}

} // namespace

SessionProgram::SessionProgram(const WaylandSession& session) : m_process{start(session)} {}

ChildProcess SessionProgram::start(const WaylandSession& session) const {
    requestGrant(session);
    e2e::SettingsFile{m_home.path()}.set({{"hasCompletedOnboarding", true}});
    Command command = session.command({PROGRAM_FOLDER "/pallistrom"});
    command.environment[address] = Environment::value(address);
    command.environment["XDG_CONFIG_HOME"] = m_home.path();
    command.errorFile = m_home.path() / "pallistrom.log";
    for (const auto& entry : std::filesystem::recursive_directory_iterator{m_home.path()}) {
        std::filesystem::permissions(entry, std::filesystem::perms::all);
    }
    std::filesystem::permissions(m_home.path(), std::filesystem::perms::all);
    return ChildProcess{command};
}

std::string SessionProgram::log() const {
    std::ifstream file{m_home.path() / "pallistrom.log"};
    return {std::istreambuf_iterator<char>{file}, {}};
}

} // namespace pallistrom::vm
