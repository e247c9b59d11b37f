// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "desktopProgram.h"

#include "Deadline.h"
#include "pallistrom/Names.h"
#include "platform/linux/keys/ModifierTable.h"

#include <systemd/sd-bus.h>
#include <unistd.h>

#include <memory>

namespace pallistrom::vm {

namespace {

using Bus = std::unique_ptr<sd_bus, decltype([](sd_bus* bus) { sd_bus_flush_close_unref(bus); })>;
using Message =
    std::unique_ptr<sd_bus_message, decltype([](sd_bus_message* m) { sd_bus_message_unref(m); })>;

Message methodCall(const Bus& bus, const char* method) {
    sd_bus_message* message = nullptr;
    sd_bus_message_new_method_call(bus.get(),
                                   &message,
                                   Names::keyboardBusName.data(),
                                   Names::keyboardObject.data(),
                                   Names::keyboardBusName.data(),
                                   method);
    return Message{message};
}

bool send(const Bus& bus, const Message& message) {
    constexpr std::uint64_t microseconds = 60'000'000;
    return sd_bus_call(bus.get(), message.get(), microseconds, nullptr, nullptr) >= 0;
}

template<typename... Arguments>
bool call(const Bus& bus, const char* method, const char* signature, Arguments... arguments) {
    const Message message = methodCall(bus, method);
    sd_bus_message_append(message.get(), signature, arguments...);
    return send(bus, message);
}

bool sendModifiers(const Bus& bus) {
    const ModifierTable table = ModifierTable::standard();
    const Message message = methodCall(bus, "SetModifiers");
    sd_bus_message_open_container(message.get(), SD_BUS_TYPE_ARRAY, "(qy)");
    for (EvdevCode key = 0; key <= ModifierTable::highestCode; ++key) {
        if (const Modifier modifier = table.modifierOf(key); modifier != Modifier::None) {
            sd_bus_message_append(
                message.get(), "(qy)", unsigned{key}, static_cast<unsigned>(modifier));
        }
    }
    sd_bus_message_close_container(message.get());
    return send(bus, message);
}

} // namespace

int desktopProgram() {
    sd_bus* opened = nullptr;
    if (sd_bus_open_system(&opened) < 0) {
        return 1;
    }
    const Bus bus{opened};
    const auto isThere = [&bus] {
        return call(bus, "GetAccess", "");
    };
    constexpr unsigned allSwitches = 0b1111;
    const bool isOn = waitUntil(isThere, Deadline{std::chrono::minutes{2}}) &&
                      call(bus, "RequestGrant", "") && sendModifiers(bus) &&
                      call(bus, "SetSwitches", "u", allSwitches) && call(bus, "SetTap", "b", 1);
    if (!isOn) {
        return 1;
    }
    for (;;) {
        sd_bus_process(bus.get(), nullptr);
        sd_bus_wait(bus.get(), UINT64_MAX);
    }
}

} // namespace pallistrom::vm
