// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/clients/Users.h"

#include <algorithm>

namespace pallistrom {

bool Users::add(std::string_view connection, UserId user) {
    if (m_connections.size() >= mostConnections || connectionsOf(user) >= mostConnectionsOfOne) {
        return false;
    }
    m_connections.emplace(connection, Connection{.user = user});
    m_users.try_emplace(user);
    return true;
}

std::optional<UserId> Users::userOf(std::string_view connection) const {
    const auto found = m_connections.find(connection);
    return found == m_connections.end() ? std::nullopt : std::optional{found->second.user};
}

void Users::setTap(std::string_view connection, bool on) {
    const auto found = m_connections.find(connection);
    if (found != m_connections.end()) {
        found->second.wantsTap = on;
        // Either word takes the place of what was said before the user's program vanished.
        m_users.at(found->second.user).end.reset();
    }
}

void Users::change(std::string_view connection, const std::function<void(UserWish&)>& change) {
    if (const auto user = userOf(connection)) {
        change(m_users.at(*user).wish);
    }
}

void Users::vanish(std::string_view connection, Moment now) {
    const auto found = m_connections.find(connection);
    if (found == m_connections.end()) {
        return;
    }
    const Connection gone = found->second;
    m_connections.erase(found);
    if (gone.wantsTap && !isConnectionWanting(gone.user)) {
        m_users.at(gone.user).end = now + holdTime;
    }
    forgetIfGone(gone.user);
}

void Users::vanishAll(Moment now) {
    for (const std::string& connection : connections()) {
        vanish(connection, now);
    }
}

void Users::passTime(Moment now) {
    std::vector<UserId> over;
    for (const auto& [id, user] : m_users) {
        if (user.end && *user.end <= now) {
            over.push_back(id);
        }
    }
    std::for_each(over.begin(), over.end(), [this](UserId id) { endHold(id); });
}

std::optional<Moment> Users::nextChange() const {
    std::optional<Moment> next;
    for (const auto& [id, user] : m_users) {
        if (user.end && (!next || *user.end < *next)) {
            next = user.end;
        }
    }
    return next;
}

void Users::sessionIs(const std::optional<ActiveSession>& active) {
    const auto found = active ? m_users.find(active->user) : m_users.end();
    if (found == m_users.end() || found->second.session == active->id) {
        return;
    }
    User& user = found->second;
    const bool isAnother = !user.session.empty();
    user.session = active->id;
    if (isAnother && user.end) {
        endHold(found->first);
    }
}

bool Users::wantsTap(UserId user) const {
    const auto found = m_users.find(user);
    return found != m_users.end() && (found->second.end || isConnectionWanting(user));
}

UserWish Users::wishOf(UserId user) const {
    const auto found = m_users.find(user);
    return found == m_users.end() ? UserWish{} : found->second.wish;
}

std::vector<std::string> Users::connections() const {
    std::vector<std::string> names;
    for (const auto& [name, connection] : m_connections) {
        names.push_back(name);
    }
    return names;
}

std::size_t Users::connectionsOf(UserId user) const {
    return static_cast<std::size_t>(
        std::count_if(m_connections.begin(), m_connections.end(), [user](const auto& entry) {
            return entry.second.user == user;
        }));
}

bool Users::isConnectionWanting(UserId user) const {
    return std::any_of(m_connections.begin(), m_connections.end(), [user](const auto& entry) {
        return entry.second.user == user && entry.second.wantsTap;
    });
}

void Users::endHold(UserId user) {
    m_users.at(user).end.reset();
    forgetIfGone(user);
}

void Users::forgetIfGone(UserId user) {
    if (connectionsOf(user) == 0 && !m_users.at(user).end) {
        m_users.erase(user);
    }
}

} // namespace pallistrom
