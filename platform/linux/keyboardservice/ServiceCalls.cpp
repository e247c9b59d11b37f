// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keyboardservice/ServiceCalls.h"

#include "pallistrom/Names.h"
#include "platform/linux/keyboardservice/KeyboardInterface.h"

namespace pallistrom::ServiceCalls {

namespace {

BusMessage makeCall(const BusConnection& bus, const char* interface, const char* member) {
    return bus.makeCall(
        Names::keyboardBusName.data(), Names::keyboardObject.data(), interface, member);
}

} // namespace

BusMessage getVersion(const BusConnection& bus) {
    auto call = makeCall(bus, "org.freedesktop.DBus.Properties", "Get");
    if (call) {
        sd_bus_message_append(call.get(), "ss", Names::keyboardBusName.data(), "Version");
    }
    return call;
}

BusMessage make(const BusConnection& bus, const char* member) {
    auto call = makeCall(bus, Names::keyboardBusName.data(), member);
    if (call) {
        sd_bus_message_set_auto_start(call.get(), 0);
    }
    return call;
}

BusMessage setSession(const BusConnection& bus, const std::string& id) {
    auto call = make(bus, "SetSession");
    if (call) {
        sd_bus_message_append_basic(call.get(), 's', id.c_str());
    }
    return call;
}

BusMessage setTap(const BusConnection& bus, bool on) {
    auto call = make(bus, "SetTap");
    if (call) {
        const int value = on ? 1 : 0;
        sd_bus_message_append_basic(call.get(), 'b', &value);
    }
    return call;
}

BusMessage setSwitches(const BusConnection& bus, std::uint32_t switches) {
    auto call = make(bus, "SetSwitches");
    if (call) {
        sd_bus_message_append_basic(call.get(), 'u', &switches);
    }
    return call;
}

BusMessage setModifiers(const BusConnection& bus, const ModifierTable& modifiers) {
    auto call = make(bus, "SetModifiers");
    if (!call) {
        return nullptr;
    }
    sd_bus_message_open_container(call.get(), 'a', "(qy)");
    std::size_t count = 0;
    for (EvdevCode code = 0; code <= ModifierTable::highestCode; ++code) {
        const Modifier modifier = modifiers.modifierOf(code);
        if (modifier != Modifier::None && count < KeyboardInterface::mostModifiers) {
            ++count;
            sd_bus_message_append(call.get(), "(qy)", code, static_cast<std::uint8_t>(modifier));
        }
    }
    sd_bus_message_close_container(call.get());
    return call;
}

BusMessage setFrontApplication(const BusConnection& bus, FrontApplication application) {
    auto call = make(bus, "SetFrontApplication");
    if (call) {
        const auto kind = static_cast<std::uint8_t>(application);
        sd_bus_message_append_basic(call.get(), 'y', &kind);
    }
    return call;
}

} // namespace pallistrom::ServiceCalls
