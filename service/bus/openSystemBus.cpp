// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/bus/openSystemBus.h"

#include <cstdlib>

namespace pallistrom {

int openSystemBus(OwnedBus& bus) {
    const char* const address = secure_getenv("DBUS_SYSTEM_BUS_ADDRESS");
    int result = into(bus, [](sd_bus** made) { return sd_bus_new(made); });
    if (result >= 0) {
        result = sd_bus_set_address(
            bus.get(), address != nullptr ? address : "unix:path=/run/dbus/system_bus_socket");
    }
    if (result >= 0) {
        result = sd_bus_set_bus_client(bus.get(), 1);
    }
    if (result >= 0) {
        // Nothing that we say or hear has files in it, so nobody shall send us any.
        result = sd_bus_negotiate_fds(bus.get(), 0);
    }
    return result < 0 ? result : sd_bus_start(bus.get());
}

} // namespace pallistrom
