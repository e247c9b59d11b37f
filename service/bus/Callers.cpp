// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/bus/Callers.h"

#include "platform/linux/bus/TheBus.h"

#include <cstdint>
#include <utility>

namespace pallistrom {

void Callers::take(const std::string& caller, PendingCall call) {
    const auto found = m_callers.find(caller);
    if (found == m_callers.end()) {
        add(caller, std::move(call));
    } else if (found->second->isKnown) {
        m_receiver.called(caller, std::move(call));
    } else if (found->second->waiting.size() < mostWaitingCalls) {
        found->second->waiting.push_back(std::move(call));
    } else {
        call.reply.tooMuch();
    }
}

// The watch comes first: a caller that ends between the two is then missing in the answer.
void Callers::add(const std::string& name, PendingCall call) {
    if (m_callers.size() >= mostCallers) {
        call.reply.tooMuch();
        return;
    }
    auto caller = std::make_unique<Caller>();
    caller->owner = this;
    caller->name = name;
    const std::string match = std::string{"type='signal',sender='"} + TheBus::name + "',path='" +
                              TheBus::object + "',interface='" + TheBus::name +
                              "',member='NameOwnerChanged',arg0='" + name + "'";
    const int watched = into(caller->nameWatch, [&](sd_bus_slot** slot) {
        return sd_bus_add_match_async(
            m_bus, slot, match.c_str(), nameChanged, nameWatched, caller.get());
    });
    const int asked = into(caller->question, [&](sd_bus_slot** slot) {
        return sd_bus_call_method_async(m_bus,
                                        slot,
                                        TheBus::name,
                                        TheBus::object,
                                        TheBus::name,
                                        "GetConnectionUnixUser",
                                        userTold,
                                        caller.get(),
                                        "s",
                                        name.c_str());
    });
    if (watched < 0 || asked < 0) {
        call.reply.tooMuch();
        return;
    }
    caller->waiting.push_back(std::move(call));
    m_callers.emplace(name, std::move(caller));
}

int Callers::userTold(sd_bus_message* message, void* caller, sd_bus_error* /*error*/) {
    auto& self = *static_cast<Caller*>(caller);
    std::uint32_t user = 0;
    const bool isTold = sd_bus_message_is_method_error(message, nullptr) == 0 &&
                        sd_bus_message_read(message, "u", &user) > 0;
    self.owner->identified(self, isTold ? std::optional<UserId>{user} : std::nullopt);
    return 1;
}

void Callers::identified(Caller& caller, std::optional<UserId> user) {
    if (!user) { // It has gone, so nobody waits for answers.
        forget(caller);
        return;
    }
    auto waiting = std::exchange(caller.waiting, {});
    if (!m_receiver.arrived(caller.name, *user)) {
        for (const PendingCall& call : waiting) {
            call.reply.tooMuch();
        }
        forget(caller);
        return;
    }
    caller.isKnown = true;
    // What is called may make the caller be forgotten.
    const std::string name = caller.name;
    for (PendingCall& call : waiting) {
        m_receiver.called(name, std::move(call));
    }
}

int Callers::nameChanged(sd_bus_message* message, void* caller, sd_bus_error* /*error*/) {
    auto& self = *static_cast<Caller*>(caller);
    if (isFrom(message, TheBus::name)) {
        self.owner->forget(self);
    }
    return 0;
}

int Callers::nameWatched(sd_bus_message* message, void* caller, sd_bus_error* /*error*/) {
    auto& self = *static_cast<Caller*>(caller);
    if (sd_bus_message_is_method_error(message, nullptr) != 0) {
        // Somebody whose end we would miss is not served.
        self.owner->forget(self);
    }
    return 1;
}

void Callers::forget(Caller& caller) {
    const bool wasKnown = caller.isKnown;
    const auto found = m_callers.find(caller.name);
    const auto gone = std::move(found->second);
    m_callers.erase(found);
    if (wasKnown) {
        m_receiver.vanished(gone->name);
    }
}

} // namespace pallistrom
