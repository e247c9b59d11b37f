// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/session/LoginAnswers.h"

#include <cstdint>

namespace pallistrom::LoginAnswers {

namespace {

bool isError(sd_bus_message* answer) {
    return sd_bus_message_is_method_error(answer, nullptr) != 0;
}

// Of Properties.Get(), if it is of the type `contents`.
bool enterVariant(sd_bus_message* answer, const char* contents) {
    return sd_bus_message_enter_container(answer, SD_BUS_TYPE_VARIANT, contents) > 0;
}

struct Session {
    std::string id;
    std::string kind;
    std::string state;
    std::optional<UserId> user;
    bool isLocked = false;
};

bool readText(sd_bus_message* answer, std::string& text) {
    const char* value = nullptr;
    if (sd_bus_message_read(answer, "v", "s", &value) <= 0) {
        return false;
    }
    text = value;
    return true;
}

bool readLocked(sd_bus_message* answer, bool& isLocked) {
    int value = 0;
    const bool isRead = sd_bus_message_read(answer, "v", "b", &value) > 0;
    isLocked = value != 0;
    return isRead;
}

bool readUser(sd_bus_message* answer, std::optional<UserId>& user) {
    std::uint32_t id = 0;
    const char* object = nullptr;
    const bool isRead = sd_bus_message_read(answer, "v", "(uo)", &id, &object) > 0;
    user = id;
    return isRead;
}

// Reads the value of the property `name`.
bool readProperty(sd_bus_message* answer, std::string_view name, Session& session) {
    if (name == "Id") {
        return readText(answer, session.id);
    }
    if (name == "Class") {
        return readText(answer, session.kind);
    }
    if (name == "State") {
        return readText(answer, session.state);
    }
    if (name == "User") {
        return readUser(answer, session.user);
    }
    if (name == "LockedHint") {
        return readLocked(answer, session.isLocked);
    }
    return sd_bus_message_skip(answer, "v") > 0;
}

std::optional<Session> readSession(sd_bus_message* answer) {
    Session session;
    if (sd_bus_message_enter_container(answer, SD_BUS_TYPE_ARRAY, "{sv}") <= 0) {
        return std::nullopt;
    }
    int entered = 0;
    while ((entered = sd_bus_message_enter_container(answer, SD_BUS_TYPE_DICT_ENTRY, "sv")) > 0) {
        const char* name = nullptr;
        if (sd_bus_message_read_basic(answer, SD_BUS_TYPE_STRING, &name) <= 0 ||
            !readProperty(answer, name, session) || sd_bus_message_exit_container(answer) < 0) {
            return std::nullopt;
        }
    }
    return entered == 0 ? std::optional{session} : std::nullopt;
}

} // namespace

bool isGoingToSleep(sd_bus_message* answer) {
    int value = 0;
    return !isError(answer) && sd_bus_message_read(answer, "v", "b", &value) > 0 && value != 0;
}

std::set<UserId> localUsers(sd_bus_message* answer) {
    std::set<UserId> users;
    if (isError(answer) ||
        sd_bus_message_enter_container(answer, SD_BUS_TYPE_ARRAY, "(susso)") <= 0) {
        return users;
    }
    const char* id = nullptr;
    std::uint32_t user = 0;
    const char* name = nullptr;
    const char* place = nullptr;
    const char* object = nullptr;
    while (sd_bus_message_read(answer, "(susso)", &id, &user, &name, &place, &object) > 0) {
        if (place == seat) {
            users.insert(user);
        }
    }
    return users;
}

std::optional<std::string> activeSession(sd_bus_message* answer) {
    const char* id = nullptr;
    const char* object = nullptr;
    if (isError(answer) || !enterVariant(answer, "(so)") ||
        sd_bus_message_read(answer, "(so)", &id, &object) <= 0 || std::string_view{id}.empty()) {
        return std::nullopt;
    }
    return object;
}

std::optional<ActiveSession> session(sd_bus_message* answer) {
    const auto session = isError(answer) ? std::nullopt : readSession(answer);
    const bool isWorkedIn = session && session->user && !session->id.empty() &&
                            session->kind != "greeter" && session->kind != "lock-screen" &&
                            session->state != "closing";
    if (!isWorkedIn) {
        return std::nullopt;
    }
    return ActiveSession{.id = session->id, .user = *session->user, .isLocked = session->isLocked};
}

} // namespace pallistrom::LoginAnswers
