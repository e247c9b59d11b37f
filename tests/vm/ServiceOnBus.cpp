// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ServiceOnBus.h"

#include "Environment.h"
#include "WaylandSession.h"
#include "desktopProgram.h"

#include <stdexcept>

namespace pallistrom::vm {

namespace {

constexpr const char* login = "org.freedesktop.login1";
constexpr const char* authority = "org.freedesktop.PolicyKit1";
constexpr const char* mock = "org.freedesktop.DBus.Mock";
constexpr const char* session = "/org/freedesktop/login1/session/test";
constexpr const char* address = "DBUS_SYSTEM_BUS_ADDRESS";

Command onTheBus(const std::vector<std::string>& arguments) {
    return {.arguments = arguments,
            .environment = {{"PATH", Environment::value("PATH")},
                            {address, Environment::value(address)}}};
}

} // namespace

ServiceOnBus::ServiceOnBus(const std::string& user)
    : m_login{startMock("logind", login)}, m_authority{startMock("polkitd", authority)} {
    const bool isSetUp = call({login,
                               "/org/freedesktop/login1",
                               mock,
                               "AddSession",
                               "ssusb",
                               "test",
                               "seat0",
                               user,
                               "somebody",
                               "true"}) &&
                         call({authority,
                               "/org/freedesktop/PolicyKit1/Authority",
                               mock,
                               "AllowUnknown",
                               "b",
                               "true"});
    if (!isSetUp) {
        throw std::runtime_error{"nobody is logged in"};
    }
    startService();
}

void ServiceOnBus::startService() {
    m_service.reset();
    Command command = onTheBus({SERVICE_PROGRAM});
    command.environment["STATE_DIRECTORY"] = m_state.path();
    m_service.emplace(command);
}

void ServiceOnBus::startDesktop() {
    m_desktop.reset();
    m_desktop.emplace(desktopProgram);
}

void ServiceOnBus::setLocked(bool isLocked) const {
    if (!call({login,
               session,
               "org.freedesktop.login1.Session",
               "SetLockedHint",
               "b",
               isLocked ? "true" : "false"})) {
        throw std::runtime_error{"the session cannot be locked"};
    }
}

void ServiceOnBus::setActive(bool isActive) const {
    if (!call({login,
               "/org/freedesktop/login1/seat/seat0",
               "org.freedesktop.DBus.Properties",
               "Set",
               "ssv",
               "org.freedesktop.login1.Seat",
               "ActiveSession",
               "(so)",
               isActive ? "test" : "",
               isActive ? session : "/"})) {
        throw std::runtime_error{"the session cannot be switched"};
    }
}

ChildProcess ServiceOnBus::startMock(const std::string& what, const std::string& name) const {
    ChildProcess process{onTheBus({"python3", "-m", "dbusmock", "--system", "--template", what})};
    const bool isThere = waitUntil(
        [&] {
            return call({"org.freedesktop.DBus",
                         "/org/freedesktop/DBus",
                         "org.freedesktop.DBus",
                         "GetNameOwner",
                         "s",
                         name});
        },
        WaylandSession::patience());
    if (!isThere) {
        throw std::runtime_error{what + " does not come up"};
    }
    return process;
}

bool ServiceOnBus::call(const std::vector<std::string>& arguments) const {
    Command command = onTheBus({"busctl", "--address=" + Environment::value(address), "call"});
    command.arguments.insert(command.arguments.end(), arguments.begin(), arguments.end());
    command.errorFile = m_state.path() / "calls.log";
    return ChildProcess{command}.wait(WaylandSession::patience()) == 0;
}

} // namespace pallistrom::vm
