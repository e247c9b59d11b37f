// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FakeLogin.h"

#include <systemd/sd-bus-vtable.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace pallistrom {

namespace {

constexpr const char* managerObject = "/org/freedesktop/login1";
constexpr const char* managerInterface = "org.freedesktop.login1.Manager";
constexpr const char* seatObject = "/org/freedesktop/login1/seat/seat0";
constexpr const char* seatInterface = "org.freedesktop.login1.Seat";
constexpr const char* sessionInterface = "org.freedesktop.login1.Session";
constexpr std::string_view sessionFolder = "/org/freedesktop/login1/session/";

std::string objectOf(const std::string& id) {
    return id.empty() ? "/" : std::string{sessionFolder} + id;
}

void check(int result) {
    if (result < 0) {
        throw std::runtime_error{"the login manager does not come up"};
    }
}

} // namespace

FakeLogin::FakeLogin(const Loop& loop) : m_connection{loop} {
    static const std::array<sd_bus_vtable, 4> managerTable{{
        SD_BUS_VTABLE_START(0),
        SD_BUS_METHOD("ListSessions", "", "a(susso)", listSessions, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_PROPERTY("PreparingForSleep", "b", tellSleep, 0, 0),
        SD_BUS_VTABLE_END,
    }};
    static const std::array<sd_bus_vtable, 3> seatTable{{
        SD_BUS_VTABLE_START(0),
        SD_BUS_PROPERTY(
            "ActiveSession", "(so)", tellActive, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
        SD_BUS_VTABLE_END,
    }};
    sd_bus* const bus = m_connection.get();
    check(into(m_managerObject, [&](sd_bus_slot** slot) {
        return sd_bus_add_object_vtable(
            bus, slot, managerObject, managerInterface, managerTable.data(), this);
    }));
    check(into(m_seatObject, [&](sd_bus_slot** slot) {
        return sd_bus_add_object_vtable(
            bus, slot, seatObject, seatInterface, seatTable.data(), this);
    }));
    check(into(m_sessionObjects, [&](sd_bus_slot** slot) {
        return sd_bus_add_fallback(bus, slot, "/org/freedesktop/login1/session", tellSession, this);
    }));
    m_connection.own("org.freedesktop.login1");
}

FakeLogin::Session* FakeLogin::find(const std::string& id) {
    const auto found = std::find_if(
        m_sessions.begin(), m_sessions.end(), [&](const Session& one) { return one.id == id; });
    return found == m_sessions.end() ? nullptr : &*found;
}

void FakeLogin::open(Session session) {
    m_sessions.push_back(std::move(session));
    const Session& opened = m_sessions.back();
    check(sd_bus_emit_signal(m_connection.get(),
                             managerObject,
                             managerInterface,
                             "SessionNew",
                             "so",
                             opened.id.c_str(),
                             objectOf(opened.id).c_str()));
}

void FakeLogin::close(const std::string& id) {
    std::erase_if(m_sessions, [&](const Session& one) { return one.id == id; });
    check(sd_bus_emit_signal(m_connection.get(),
                             managerObject,
                             managerInterface,
                             "SessionRemoved",
                             "so",
                             id.c_str(),
                             objectOf(id).c_str()));
    if (m_active == id) {
        activate("");
    }
}

void FakeLogin::activate(const std::string& id) {
    m_active = id;
    check(sd_bus_emit_properties_changed(
        m_connection.get(), seatObject, seatInterface, "ActiveSession", nullptr));
}

void FakeLogin::lock(const std::string& id, bool isLocked) {
    find(id)->isLocked = isLocked;
    signalProperty(objectOf(id), sessionInterface, "LockedHint");
}

void FakeLogin::prepareForSleep(bool isGoingToSleep) {
    m_isGoingToSleep = isGoingToSleep;
    check(sd_bus_emit_signal(m_connection.get(),
                             managerObject,
                             managerInterface,
                             "PrepareForSleep",
                             "b",
                             isGoingToSleep ? 1 : 0));
}

void FakeLogin::signalProperty(const std::string& object,
                               const char* interface,
                               const char* name) const {
    check(sd_bus_emit_signal(m_connection.get(),
                             object.c_str(),
                             "org.freedesktop.DBus.Properties",
                             "PropertiesChanged",
                             "sa{sv}as",
                             interface,
                             0,
                             1,
                             name));
}

int FakeLogin::listSessions(sd_bus_message* call, void* login, sd_bus_error* /*error*/) {
    auto& self = *static_cast<FakeLogin*>(login);
    ++self.m_questions;
    OwnedMessage reply;
    check(into(reply, [call](sd_bus_message** made) {
        return sd_bus_message_new_method_return(call, made);
    }));
    check(sd_bus_message_open_container(reply.get(), 'a', "(susso)"));
    for (const Session& session : self.m_sessions) {
        check(sd_bus_message_append(reply.get(),
                                    "(susso)",
                                    session.id.c_str(),
                                    session.user,
                                    "somebody",
                                    session.seat.c_str(),
                                    objectOf(session.id).c_str()));
    }
    check(sd_bus_message_close_container(reply.get()));
    return sd_bus_send(nullptr, reply.get(), nullptr);
}

int FakeLogin::tellSleep(sd_bus* /*bus*/,
                         const char* /*path*/,
                         const char* /*interface*/,
                         const char* /*property*/,
                         sd_bus_message* reply,
                         void* login,
                         sd_bus_error* /*error*/) {
    return sd_bus_message_append(
        reply, "b", static_cast<FakeLogin*>(login)->m_isGoingToSleep ? 1 : 0);
}

int FakeLogin::tellActive(sd_bus* /*bus*/,
                          const char* /*path*/,
                          const char* /*interface*/,
                          const char* /*property*/,
                          sd_bus_message* reply,
                          void* login,
                          sd_bus_error* /*error*/) {
    const std::string& id = static_cast<FakeLogin*>(login)->m_active;
    return sd_bus_message_append(reply, "(so)", id.c_str(), objectOf(id).c_str());
}

int FakeLogin::tellSession(sd_bus_message* call, void* login, sd_bus_error* /*error*/) {
    auto& self = *static_cast<FakeLogin*>(login);
    if (sd_bus_message_is_method_call(call, "org.freedesktop.DBus.Properties", "GetAll") <= 0) {
        return 0;
    }
    if (self.m_isSilent) {
        ++self.m_unanswered;
        return 1;
    }
    const std::string path{sd_bus_message_get_path(call)};
    const Session* const session = self.find(path.substr(sessionFolder.size()));
    if (session == nullptr) {
        return sd_bus_reply_method_errorf(
            call, "org.freedesktop.DBus.Error.UnknownObject", "No such session");
    }
    return sd_bus_reply_method_return(call,
                                      "a{sv}",
                                      7,
                                      "Id",
                                      "s",
                                      session->id.c_str(),
                                      "User",
                                      "(uo)",
                                      session->user,
                                      "/org/freedesktop/login1/user/_1",
                                      "VTNr",
                                      "u",
                                      1,
                                      "Class",
                                      "s",
                                      session->kind.c_str(),
                                      "State",
                                      "s",
                                      session->state.c_str(),
                                      "Remote",
                                      "b",
                                      0,
                                      "LockedHint",
                                      "b",
                                      session->isLocked ? 1 : 0);
}

} // namespace pallistrom
