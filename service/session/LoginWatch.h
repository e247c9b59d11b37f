// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/bus/Handles.h"
#include "service/session/LoginState.h"

#include <functional>
#include <optional>
#include <string>

namespace pallistrom {

/// Keeps up with the login manager, over the system bus.
///
/// Its signals say no more than "look again"; what is, it is asked. So nothing that somebody else
/// sends can be taken for the truth. Nothing waits for answers, and at most one question is out.
class LoginWatch {
public:
    /// `bus` outlives this. `looked` is told what was found, at first and whenever that may have
    /// changed.
    LoginWatch(sd_bus* bus, std::function<void(const LoginState&)> looked);

    ~LoginWatch() = default;
    LoginWatch(const LoginWatch&) = delete;
    LoginWatch& operator=(const LoginWatch&) = delete;

    /// Looks for the first time. Returns a negative errno if the bus cannot be used.
    [[nodiscard]] int start();

private:
    using Step = void (LoginWatch::*)(sd_bus_message* answer);

    [[nodiscard]] int watch(OwnedSlot& slot, const char* match, sd_bus_message_handler_t heard);
    [[nodiscard]] int watchOwner();
    void lookAgain();
    void look();
    void sleepTold(sd_bus_message* answer);
    void sessionsTold(sd_bus_message* answer);
    void activeSessionTold(sd_bus_message* answer);
    void sessionTold(sd_bus_message* answer);
    void finish();
    void askProperty(const char* object, const char* interface, const char* name, Step next);
    void asked(int result, Step next);
    static int answered(sd_bus_message* answer, void* watch, sd_bus_error* error);
    static int changed(sd_bus_message* signal, void* watch, sd_bus_error* error);
    static int ownerChanged(sd_bus_message* signal, void* watch, sd_bus_error* error);
    static int ownerTold(sd_bus_message* answer, void* watch, sd_bus_error* error);

    sd_bus* m_bus;
    std::function<void(const LoginState&)> m_looked;
    std::string m_owner; ///< the login manager's own name on the bus
    LoginState m_found;
    Step m_next = nullptr; ///< while an answer is waited for
    bool m_isOutdated = false;
    OwnedSlot m_question;
    OwnedSlot m_ownerQuestion;
    OwnedSlot m_ownerWatch;
    OwnedSlot m_propertyWatch;
    OwnedSlot m_managerWatch;
};

} // namespace pallistrom
