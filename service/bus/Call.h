// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/keys/ModifierTable.h"

#include <systemd/sd-bus.h>

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace pallistrom {

/// What the service can be asked, as packaging/service/org.pallistrom.Keyboard1.xml says it.
namespace Calls {

struct GetAccess {};

struct RequestGrant {};

struct WithdrawGrant {};

struct EndPanic {};

struct SetSession {
    std::string id;
};

struct SetTap {
    bool on = false;
};

struct SetSwitches {
    std::uint32_t switches = 0;
};

struct SetModifiers {
    ModifierTable modifiers;
};

struct SetFrontApplication {
    FrontApplication kind{};
};

} // namespace Calls

using Call = std::variant<Calls::GetAccess,
                          Calls::RequestGrant,
                          Calls::WithdrawGrant,
                          Calls::EndPanic,
                          Calls::SetSession,
                          Calls::SetTap,
                          Calls::SetSwitches,
                          Calls::SetModifiers,
                          Calls::SetFrontApplication>;

/// Reads the call that `message` is, from any caller. Returns nothing if its arguments are not all
/// that and no more than the interface allows.
[[nodiscard]] std::optional<Call> readCall(sd_bus_message* message);

} // namespace pallistrom
