// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Connection.h"
#include "service/session/LoginState.h"

#include <optional>
#include <string>
#include <vector>

namespace pallistrom {

/// A login manager whose sessions are made by hand. It answers and signals as the real one does, as
/// far as the service asks.
class FakeLogin {
public:
    struct Session {
        std::string id;
        UserId user = 0;
        std::string seat = "seat0";
        std::string kind = "user";
        std::string state = "active";
        bool isLocked = false;
    };

    explicit FakeLogin(const Loop& loop);

    FakeLogin(const FakeLogin&) = delete;
    FakeLogin& operator=(const FakeLogin&) = delete;

    void open(Session session);
    void close(const std::string& id);

    /// Gives the seat to a session; an empty id to none.
    void activate(const std::string& id);

    void lock(const std::string& id, bool isLocked);

    void prepareForSleep(bool isGoingToSleep);

    /// Answers no question about a session any more.
    void fallSilent() { m_isSilent = true; }

    /// How many questions it has kept silent to.
    [[nodiscard]] int unanswered() const { return m_unanswered; }

    /// How often it was asked for the list of sessions.
    [[nodiscard]] int questions() const { return m_questions; }

private:
    [[nodiscard]] Session* find(const std::string& id);
    void signalProperty(const std::string& object, const char* interface, const char* name) const;
    static int listSessions(sd_bus_message* call, void* login, sd_bus_error* error);
    static int tellSleep(sd_bus* bus,
                         const char* path,
                         const char* interface,
                         const char* property,
                         sd_bus_message* reply,
                         void* login,
                         sd_bus_error* error);
    static int tellActive(sd_bus* bus,
                          const char* path,
                          const char* interface,
                          const char* property,
                          sd_bus_message* reply,
                          void* login,
                          sd_bus_error* error);
    static int tellSession(sd_bus_message* call, void* login, sd_bus_error* error);

    Connection m_connection;
    std::vector<Session> m_sessions;
    std::string m_active;
    bool m_isGoingToSleep = false;
    bool m_isSilent = false;
    int m_unanswered = 0;
    int m_questions = 0;
    OwnedSlot m_managerObject;
    OwnedSlot m_seatObject;
    OwnedSlot m_sessionObjects;
};

} // namespace pallistrom
