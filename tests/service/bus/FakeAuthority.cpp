// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FakeAuthority.h"

#include <systemd/sd-bus-vtable.h>

#include <array>
#include <stdexcept>
#include <utility>

namespace pallistrom {

FakeAuthority::FakeAuthority(const Loop& loop) : m_connection{loop} {
    static const std::array<sd_bus_vtable, 4> table{{
        SD_BUS_VTABLE_START(0),
        SD_BUS_METHOD("CheckAuthorization",
                      "(sa{sv})sa{ss}us",
                      "(bba{ss})",
                      check,
                      SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_METHOD("CancelCheckAuthorization", "s", "", cancel, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_VTABLE_END,
    }};
    if (into(m_object, [this](sd_bus_slot** slot) {
            return sd_bus_add_object_vtable(m_connection.get(),
                                            slot,
                                            "/org/freedesktop/PolicyKit1/Authority",
                                            "org.freedesktop.PolicyKit1.Authority",
                                            table.data(),
                                            this);
        }) < 0) {
        throw std::runtime_error{"the authority does not come up"};
    }
    m_connection.own("org.freedesktop.PolicyKit1");
}

int FakeAuthority::check(sd_bus_message* call, void* authority, sd_bus_error* /*error*/) {
    auto& self = *static_cast<FakeAuthority*>(authority);
    const char* kind = nullptr;
    const char* key = nullptr;
    const char* caller = nullptr;
    const char* action = nullptr;
    const char* cancellation = nullptr;
    std::uint32_t flags = 0;
    if (sd_bus_message_read(call, "(sa{sv})s", &kind, 1, &key, "s", &caller, &action) <= 0 ||
        sd_bus_message_skip(call, "a{ss}") <= 0 ||
        sd_bus_message_read(call, "us", &flags, &cancellation) <= 0) {
        throw std::runtime_error{"the authority is asked something else"};
    }
    self.m_questions.push_back({.kind = kind,
                                .caller = caller,
                                .action = action,
                                .flags = flags,
                                .cancellation = cancellation});
    self.m_open.push_back(hold(call));
    return 1;
}

int FakeAuthority::cancel(sd_bus_message* call, void* authority, sd_bus_error* /*error*/) {
    const char* cancellation = nullptr;
    if (sd_bus_message_read(call, "s", &cancellation) > 0) {
        static_cast<FakeAuthority*>(authority)->m_cancelled.emplace_back(cancellation);
    }
    return sd_bus_reply_method_return(call, nullptr);
}

OwnedMessage FakeAuthority::takeOldest() {
    OwnedMessage call = std::move(m_open.front());
    m_open.pop_front();
    return call;
}

void FakeAuthority::answer(bool isAuthorized, bool isChallenge) {
    const OwnedMessage call = takeOldest();
    if (sd_bus_reply_method_return(
            call.get(), "(bba{ss})", isAuthorized ? 1 : 0, isChallenge ? 1 : 0, 0) < 0) {
        throw std::runtime_error{"the authority cannot answer"};
    }
}

void FakeAuthority::answerWithError(const char* name) {
    const OwnedMessage call = takeOldest();
    if (sd_bus_reply_method_errorf(call.get(), name, "No.") < 0) {
        throw std::runtime_error{"the authority cannot answer"};
    }
}

} // namespace pallistrom
