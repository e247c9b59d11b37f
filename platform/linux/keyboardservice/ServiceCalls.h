// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/BusConnection.h"
#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/keys/ModifierTable.h"

#include <cstdint>
#include <string>

/// Each call of the service's interface, ready to be sent. Null if the bus cannot make one.
namespace pallistrom::ServiceCalls {

/// Has the bus start the service, if it knows how. The others do not.
[[nodiscard]] BusMessage getVersion(const BusConnection& bus);

/// A call without arguments.
[[nodiscard]] BusMessage make(const BusConnection& bus, const char* member);

[[nodiscard]] BusMessage setSession(const BusConnection& bus, const std::string& id);
[[nodiscard]] BusMessage setTap(const BusConnection& bus, bool on);
[[nodiscard]] BusMessage setSwitches(const BusConnection& bus, std::uint32_t switches);
[[nodiscard]] BusMessage setModifiers(const BusConnection& bus, const ModifierTable& modifiers);
[[nodiscard]] BusMessage setFrontApplication(const BusConnection& bus,
                                             FrontApplication application);

} // namespace pallistrom::ServiceCalls
