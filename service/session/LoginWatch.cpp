// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/session/LoginWatch.h"

#include "platform/linux/bus/TheBus.h"
#include "service/session/LoginAnswers.h"

#include <algorithm>
#include <utility>

namespace pallistrom {

namespace {

constexpr const char* manager = "org.freedesktop.login1";
constexpr const char* managerObject = "/org/freedesktop/login1";
constexpr const char* managerInterface = "org.freedesktop.login1.Manager";
constexpr const char* properties = "org.freedesktop.DBus.Properties";

// A match that the bus refuses would end the connection, if nobody looked at the answer. Without it
// we hear too little, and the next answer to anything else says so.
int ignoreAnswer(sd_bus_message* /*answer*/, void* /*watch*/, sd_bus_error* /*error*/) {
    return 1;
}

} // namespace

LoginWatch::LoginWatch(sd_bus* bus, std::function<void(const LoginState&)> looked)
    : m_bus{bus}, m_looked{std::move(looked)} {}

int LoginWatch::start() {
    const int result = std::min(
        {watchOwner(),
         watch(m_propertyWatch,
               "type='signal',sender='org.freedesktop.login1',"
               "path_namespace='/org/freedesktop/login1',"
               "interface='org.freedesktop.DBus.Properties',member='PropertiesChanged'",
               changed),
         watch(m_managerWatch,
               "type='signal',sender='org.freedesktop.login1',path='/org/freedesktop/login1',"
               "interface='org.freedesktop.login1.Manager'",
               changed)});
    if (result >= 0) {
        lookAgain();
    }
    return result;
}

int LoginWatch::watch(OwnedSlot& slot, const char* match, sd_bus_message_handler_t heard) {
    return into(slot, [&](sd_bus_slot** made) {
        return sd_bus_add_match_async(m_bus, made, match, heard, ignoreAnswer, this);
    });
}

// The login manager may be started, or started anew, after us.
int LoginWatch::watchOwner() {
    const int watched = watch(m_ownerWatch,
                              "type='signal',sender='org.freedesktop.DBus',"
                              "path='/org/freedesktop/DBus',interface='org.freedesktop.DBus',"
                              "member='NameOwnerChanged',arg0='org.freedesktop.login1'",
                              ownerChanged);
    const int asked = into(m_ownerQuestion, [this](sd_bus_slot** slot) {
        return sd_bus_call_method_async(m_bus,
                                        slot,
                                        TheBus::name,
                                        TheBus::object,
                                        TheBus::name,
                                        "GetNameOwner",
                                        ownerTold,
                                        this,
                                        "s",
                                        manager);
    });
    return std::min(watched, asked);
}

int LoginWatch::ownerTold(sd_bus_message* answer, void* watch, sd_bus_error* /*error*/) {
    auto& self = *static_cast<LoginWatch*>(watch);
    const char* owner = nullptr;
    if (sd_bus_message_is_method_error(answer, nullptr) == 0 &&
        sd_bus_message_read(answer, "s", &owner) > 0) {
        self.m_owner = owner;
        self.lookAgain();
    }
    return 1;
}

int LoginWatch::ownerChanged(sd_bus_message* signal, void* watch, sd_bus_error* /*error*/) {
    auto& self = *static_cast<LoginWatch*>(watch);
    const char* name = nullptr;
    const char* before = nullptr;
    const char* owner = nullptr;
    if (isFrom(signal, TheBus::name) &&
        sd_bus_message_read(signal, "sss", &name, &before, &owner) > 0) {
        self.m_owner = owner;
        self.lookAgain();
    }
    return 0;
}

// Anybody may send us a signal that looks like this one.
int LoginWatch::changed(sd_bus_message* signal, void* watch, sd_bus_error* /*error*/) {
    auto& self = *static_cast<LoginWatch*>(watch);
    if (isFrom(signal, self.m_owner)) {
        self.lookAgain();
    }
    return 0;
}

void LoginWatch::lookAgain() {
    m_isOutdated = true;
    if (m_next == nullptr) {
        look();
    }
}

void LoginWatch::look() {
    m_isOutdated = false;
    m_found = {};
    askProperty(managerObject, managerInterface, "PreparingForSleep", &LoginWatch::sleepTold);
}

void LoginWatch::sleepTold(sd_bus_message* answer) {
    m_found.isGoingToSleep = LoginAnswers::isGoingToSleep(answer);
    asked(into(m_question,
               [this](sd_bus_slot** slot) {
                   return sd_bus_call_method_async(m_bus,
                                                   slot,
                                                   manager,
                                                   managerObject,
                                                   managerInterface,
                                                   "ListSessions",
                                                   answered,
                                                   this,
                                                   nullptr);
               }),
          &LoginWatch::sessionsTold);
}

void LoginWatch::sessionsTold(sd_bus_message* answer) {
    m_found.localUsers = LoginAnswers::localUsers(answer);
    const std::string seat = std::string{managerObject}.append("/seat/").append(LoginAnswers::seat);
    askProperty(seat.c_str(),
                "org.freedesktop.login1.Seat",
                "ActiveSession",
                &LoginWatch::activeSessionTold);
}

void LoginWatch::activeSessionTold(sd_bus_message* answer) {
    const auto session = LoginAnswers::activeSession(answer);
    if (!session) {
        finish();
        return;
    }
    asked(into(m_question,
               [&](sd_bus_slot** slot) {
                   return sd_bus_call_method_async(m_bus,
                                                   slot,
                                                   manager,
                                                   session->c_str(),
                                                   properties,
                                                   "GetAll",
                                                   answered,
                                                   this,
                                                   "s",
                                                   "org.freedesktop.login1.Session");
               }),
          &LoginWatch::sessionTold);
}

void LoginWatch::sessionTold(sd_bus_message* answer) {
    m_found.active = LoginAnswers::session(answer);
    finish();
}

void LoginWatch::finish() {
    m_looked(m_found);
    if (m_isOutdated) {
        look();
    }
}

void LoginWatch::askProperty(const char* object,
                             const char* interface,
                             const char* name,
                             Step next) {
    asked(into(m_question,
               [&](sd_bus_slot** slot) {
                   return sd_bus_call_method_async(m_bus,
                                                   slot,
                                                   manager,
                                                   object,
                                                   properties,
                                                   "Get",
                                                   answered,
                                                   this,
                                                   "ss",
                                                   interface,
                                                   name);
               }),
          next);
}

// A question that could not be sent has no answer: the connection is over, and so are we.
void LoginWatch::asked(int result, Step next) {
    m_next = result < 0 ? nullptr : next;
}

int LoginWatch::answered(sd_bus_message* answer, void* watch, sd_bus_error* /*error*/) {
    auto& self = *static_cast<LoginWatch*>(watch);
    if (sd_bus_is_open(self.m_bus) <= 0) {
        return 1; // Nobody has answered: it is the library that clears up, and nothing has changed.
    }
    const Step step = std::exchange(self.m_next, nullptr);
    (self.*step)(answer);
    return 1;
}

} // namespace pallistrom
