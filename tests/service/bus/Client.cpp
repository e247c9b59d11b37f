// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Client.h"

#include "pallistrom/Names.h"

#include <limits>
#include <stdexcept>
#include <utility>

namespace pallistrom {

namespace {

using SharedOutcome = std::shared_ptr<Outcome>;

} // namespace

Client::Client(const Loop& loop) : m_connection{loop} {
    listen();
}

Client::Client(const Loop& loop, uid_t user) : m_connection{loop, user} {
    listen();
}

void Client::listen() {
    // What is sent to us alone comes without being asked for.
    const int result = into(m_listening, [this](sd_bus_slot** slot) {
        return sd_bus_add_filter(m_connection.get(), slot, heard, this);
    });
    if (result < 0) {
        throw std::runtime_error{"no ears"};
    }
}

int Client::heard(sd_bus_message* signal, void* client, sd_bus_error* /*error*/) {
    std::uint32_t value = 0;
    if (sd_bus_message_is_signal(signal, Names::keyboardBusName.data(), "AccessChanged") > 0 &&
        sd_bus_message_read(signal, "u", &value) > 0) {
        static_cast<Client*>(client)->m_news.push_back(value);
    }
    return 0;
}

OwnedMessage Client::make(const char* method) const {
    OwnedMessage message;
    if (into(message, [&](sd_bus_message** made) {
            return sd_bus_message_new_method_call(m_connection.get(),
                                                  made,
                                                  Names::keyboardBusName.data(),
                                                  Names::keyboardObject.data(),
                                                  Names::keyboardBusName.data(),
                                                  method);
        }) < 0) {
        throw std::runtime_error{"no message"};
    }
    return message;
}

std::shared_ptr<const Outcome> Client::send(OwnedMessage message) {
    auto outcome = std::make_shared<Outcome>();
    // Belongs to the answer, which comes in any case: from the service, the bus, or the library.
    auto held = std::make_unique<SharedOutcome>(outcome);
    sd_bus_slot* slot = nullptr;
    if (sd_bus_call_async(m_connection.get(),
                          &slot,
                          message.get(),
                          answered,
                          held.get(),
                          std::numeric_limits<std::uint64_t>::max()) < 0) {
        throw std::runtime_error{"a call cannot be sent"};
    }
    static_cast<void>(sd_bus_slot_set_destroy_callback(
        slot, [](void* data) { delete static_cast<SharedOutcome*>(data); }));
    static_cast<void>(held.release());
    static_cast<void>(sd_bus_slot_set_floating(slot, 1));
    sd_bus_slot_unref(slot);
    return outcome;
}

int Client::answered(sd_bus_message* answer, void* outcome, sd_bus_error* /*error*/) {
    Outcome& result = **static_cast<SharedOutcome*>(outcome);
    if (const sd_bus_error* const error = sd_bus_message_get_error(answer)) {
        result.error = error->name;
    } else {
        std::uint32_t value = 0;
        if (sd_bus_message_read(answer, "u", &value) > 0) {
            result.value = value;
        }
    }
    result.isHere = true;
    return 1;
}

} // namespace pallistrom
