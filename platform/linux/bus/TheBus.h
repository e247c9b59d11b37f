// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <systemd/sd-bus.h>

#include <string_view>

namespace pallistrom {

/// The bus itself, which answers calls like anybody on it (D-Bus specification, "Message Bus
/// Messages").
namespace TheBus {

constexpr const char* name = "org.freedesktop.DBus";
constexpr const char* object = "/org/freedesktop/DBus";

} // namespace TheBus

/// Whether `message` came from `sender`, which is the bus or the unique name of a connection. Has
/// to be asked of signals: anybody may send one, and libsystemd takes the word of any sender for
/// that of a well-known one.
[[nodiscard]] inline bool isFrom(sd_bus_message* message, std::string_view sender) {
    const char* const name = sd_bus_message_get_sender(message);
    return name != nullptr && name == sender;
}

} // namespace pallistrom
