// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/bus/KeyboardObject.h"

#include "pallistrom/Names.h"
#include "platform/linux/keyboardservice/KeyboardInterface.h"

#include <systemd/sd-bus-vtable.h>

#include <array>
#include <utility>

namespace pallistrom {

namespace {

int tellVersion(sd_bus* /*bus*/,
                const char* /*path*/,
                const char* /*interface*/,
                const char* /*property*/,
                sd_bus_message* reply,
                void* /*object*/,
                sd_bus_error* /*error*/) {
    return sd_bus_message_append_basic(reply, SD_BUS_TYPE_UINT32, &KeyboardInterface::version);
}

// Unprivileged: without it, the library asks the bus for the rights of each caller, and waits for
// the answer.
constexpr auto forAll = SD_BUS_VTABLE_UNPRIVILEGED;

#define METHOD(name, in, inNames, out, outNames)                                                   \
    SD_BUS_METHOD_WITH_NAMES(name, in, inNames, out, outNames, KeyboardObject::received, forAll)

// The signature of a call is checked by this table before anything of ours sees it.
constexpr std::array<sd_bus_vtable, 13> table{{
    SD_BUS_VTABLE_START(0),
    SD_BUS_PROPERTY("Version", "u", tellVersion, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    METHOD("GetAccess", "", "", "u", SD_BUS_PARAM(access)),
    SD_BUS_SIGNAL_WITH_NAMES("AccessChanged", "u", SD_BUS_PARAM(access), 0),
    METHOD("RequestGrant", "", "", "u", SD_BUS_PARAM(answer)),
    METHOD("WithdrawGrant", "", "", "", ""),
    METHOD("EndPanic", "", "", "", ""),
    METHOD("SetSession", "s", SD_BUS_PARAM(id), "", ""),
    METHOD("SetTap", "b", SD_BUS_PARAM(on), "", ""),
    METHOD("SetSwitches", "u", SD_BUS_PARAM(switches), "", ""),
    METHOD("SetModifiers", "a(qy)", SD_BUS_PARAM(modifiers), "", ""),
    METHOD("SetFrontApplication", "y", SD_BUS_PARAM(kind), "", ""),
    SD_BUS_VTABLE_END,
}};

#undef METHOD

} // namespace

int KeyboardObject::publish(sd_bus* bus) {
    return into(m_slot, [&](sd_bus_slot** slot) {
        return sd_bus_add_object_vtable(bus,
                                        slot,
                                        Names::keyboardObject.data(),
                                        Names::keyboardBusName.data(),
                                        table.data(),
                                        this);
    });
}

int KeyboardObject::received(sd_bus_message* message, void* object, sd_bus_error* /*error*/) {
    const char* const caller = sd_bus_message_get_sender(message);
    if (caller == nullptr) { // No bus in between, so nobody who could vouch for the caller.
        return -EACCES;
    }
    auto call = readCall(message);
    if (!call) {
        Reply{message}.invalidArguments();
        return 1;
    }
    const auto& self = *static_cast<KeyboardObject*>(object);
    self.m_called(caller, {.call = std::move(*call), .reply = Reply{message}});
    return 1;
}

} // namespace pallistrom
