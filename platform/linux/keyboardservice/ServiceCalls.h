// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/keyboardservice/SystemBus.h"
#include "platform/linux/keys/ModifierTable.h"

#include <cstdint>
#include <string>

/// Each call of the service's interface, ready to be sent. Null if the bus cannot make one.
namespace pallistrom::ServiceCalls {

/// Has the bus start the service, if it knows how. The others do not.
[[nodiscard]] BusMessage getVersion(const SystemBus& bus);

/// A call without arguments.
[[nodiscard]] BusMessage make(const SystemBus& bus, const char* member);

[[nodiscard]] BusMessage setSession(const SystemBus& bus, const std::string& id);
[[nodiscard]] BusMessage setTap(const SystemBus& bus, bool on);
[[nodiscard]] BusMessage setSwitches(const SystemBus& bus, std::uint32_t switches);
[[nodiscard]] BusMessage setModifiers(const SystemBus& bus, const ModifierTable& modifiers);
[[nodiscard]] BusMessage setFrontApplication(const SystemBus& bus, FrontApplication application);

} // namespace pallistrom::ServiceCalls
