// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Connection.h"

#include "Environment.h"

#include <unistd.h>

#include <stdexcept>

namespace pallistrom {

namespace {

void check(int result, const char* what) {
    if (result < 0) {
        throw std::runtime_error{what};
    }
}

} // namespace

Connection::Connection(const Loop& loop) {
    start(loop);
}

Connection::Connection(const Loop& loop, uid_t user) {
    // The kernel notes who connects at the moment of connecting.
    check(seteuid(user), "this process cannot be another user");
    try {
        start(loop);
    } catch (...) {
        check(seteuid(getuid()), "this process cannot be itself again");
        throw;
    }
    check(seteuid(getuid()), "this process cannot be itself again");
}

void Connection::start(const Loop& loop) {
    check(into(m_bus, [](sd_bus** bus) { return sd_bus_new(bus); }), "no connection");
    check(sd_bus_set_address(m_bus.get(), Environment::value("DBUS_SYSTEM_BUS_ADDRESS").c_str()),
          "no address");
    check(sd_bus_set_bus_client(m_bus.get(), 1), "no client");
    check(sd_bus_start(m_bus.get()), "the bus is not there");
    // Waits until the bus has said hello.
    const char* name = nullptr;
    check(sd_bus_get_unique_name(m_bus.get(), &name), "the bus does not answer");
    check(sd_bus_attach_event(m_bus.get(), loop.get(), SD_EVENT_PRIORITY_NORMAL), "no loop");
}

std::string Connection::name() const {
    const char* name = nullptr;
    check(sd_bus_get_unique_name(m_bus.get(), &name), "the connection has no name");
    return name;
}

void Connection::own(const char* wellKnownName) const {
    check(sd_bus_request_name(m_bus.get(), wellKnownName, 0), "the name is not to be had");
}

} // namespace pallistrom
