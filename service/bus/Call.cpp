// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/bus/Call.h"

#include "engine/ShortcutLibrary.h"
#include "platform/linux/keyboardservice/KeyboardInterface.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace pallistrom {

namespace {

constexpr std::uint32_t allSwitches =
    (std::uint32_t{1} << std::tuple_size_v<decltype(ShortcutLibrary::all)>)-1;

template<typename Kind>
std::optional<Call> readNothing(sd_bus_message* /*message*/) {
    return Kind{};
}

std::optional<Call> readSession(sd_bus_message* message) {
    const char* id = nullptr;
    if (sd_bus_message_read_basic(message, SD_BUS_TYPE_STRING, &id) <= 0 ||
        !KeyboardInterface::isSessionName(id)) {
        return std::nullopt;
    }
    return Calls::SetSession{.id = id};
}

std::optional<Call> readTap(sd_bus_message* message) {
    int on = 0;
    if (sd_bus_message_read_basic(message, SD_BUS_TYPE_BOOLEAN, &on) <= 0) {
        return std::nullopt;
    }
    return Calls::SetTap{.on = on != 0};
}

std::optional<Call> readSwitches(sd_bus_message* message) {
    std::uint32_t switches = 0;
    if (sd_bus_message_read_basic(message, SD_BUS_TYPE_UINT32, &switches) <= 0 ||
        (switches & ~allSwitches) != 0) {
        return std::nullopt;
    }
    return Calls::SetSwitches{.switches = switches};
}

std::optional<Call> readFront(sd_bus_message* message) {
    std::uint8_t kind = 0;
    if (sd_bus_message_read_basic(message, SD_BUS_TYPE_BYTE, &kind) <= 0 ||
        kind > static_cast<std::uint8_t>(FrontApplication::EditsBySelection)) {
        return std::nullopt;
    }
    return Calls::SetFrontApplication{.kind = static_cast<FrontApplication>(kind)};
}

// Returns 1 for an entry that was put into the table, 0 after the last one, less for nonsense.
int readModifier(sd_bus_message* message, ModifierTable& table) {
    std::uint16_t code = 0;
    std::uint8_t modifier = 0;
    const int result = sd_bus_message_read(message, "(qy)", &code, &modifier);
    if (result <= 0) {
        return result;
    }
    if (code > ModifierTable::highestCode ||
        modifier > static_cast<std::uint8_t>(Modifier::Level3)) {
        return -1;
    }
    table.set(code, static_cast<Modifier>(modifier));
    return 1;
}

std::optional<Call> readModifiers(sd_bus_message* message) {
    if (sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "(qy)") <= 0) {
        return std::nullopt;
    }
    ModifierTable table;
    int result = readModifier(message, table);
    for (std::size_t count = 1; result > 0 && count <= KeyboardInterface::mostModifiers; ++count) {
        result = readModifier(message, table);
    }
    if (result != 0 || sd_bus_message_exit_container(message) < 0) {
        return std::nullopt;
    }
    return Calls::SetModifiers{.modifiers = table};
}

struct Method {
    std::string_view name;
    std::optional<Call> (*read)(sd_bus_message*);
};

constexpr std::array methods{
    Method{.name = "GetAccess", .read = readNothing<Calls::GetAccess>},
    Method{.name = "RequestGrant", .read = readNothing<Calls::RequestGrant>},
    Method{.name = "WithdrawGrant", .read = readNothing<Calls::WithdrawGrant>},
    Method{.name = "EndPanic", .read = readNothing<Calls::EndPanic>},
    Method{.name = "SetSession", .read = readSession},
    Method{.name = "SetTap", .read = readTap},
    Method{.name = "SetSwitches", .read = readSwitches},
    Method{.name = "SetModifiers", .read = readModifiers},
    Method{.name = "SetFrontApplication", .read = readFront},
};

} // namespace

std::optional<Call> readCall(sd_bus_message* message) {
    const char* const member = sd_bus_message_get_member(message);
    const auto* const method =
        std::find_if(methods.begin(), methods.end(), [member](const Method& candidate) {
            return member != nullptr && candidate.name == member;
        });
    if (method == methods.end()) {
        return std::nullopt;
    }
    const auto call = method->read(message);
    return call && sd_bus_message_at_end(message, 1) > 0 ? call : std::nullopt;
}

} // namespace pallistrom
