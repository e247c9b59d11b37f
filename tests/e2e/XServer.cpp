// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "XServer.h"

#include <csignal>
#include <optional>
#include <stdexcept>
#include <utility>

namespace pallistrom::e2e {

namespace {

Command withCommonArguments(Command command) {
    command.arguments.insert(command.arguments.end(), {"-displayfd", "1", "-nolisten", "tcp"});
    return command;
}

} // namespace

XServer::XServer(Command command) : m_process{withCommonArguments(std::move(command))} {
    // The server says its number once it takes connections.
    const std::optional<std::string> number = m_process.readLine();
    if (!number) {
        throw std::runtime_error{"the X server does not come up"};
    }
    m_name = ':' + *number;
}

XServer::~XServer() {
    m_process.signal(SIGTERM);
    static_cast<void>(m_process.wait());
}

} // namespace pallistrom::e2e
