// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/clients/Users.h"

#include <algorithm>
#include <utility>

namespace pallistrom {

bool Users::add(std::string_view connection, UserId user) {
    if (m_connections.size() >= mostConnections || connectionsOf(user) >= mostConnectionsOfOne) {
        return false;
    }
    m_connections.emplace(connection, Connection{.user = user});
    m_users[user].words.try_emplace(std::string{});
    return true;
}

std::optional<std::string>
Users::whoMakesRoomFor(UserId user, const std::function<Standing(UserId)>& standingOf) const {
    if (connectionsOf(user) >= mostConnectionsOfOne) {
        return std::nullopt;
    }
    std::optional<std::string> least;
    std::pair leastRank{standingOf(user), std::size_t{0}};
    for (const auto& [name, connection] : m_connections) {
        // More connections make a lower rank.
        const std::pair rank{standingOf(connection.user),
                             mostConnectionsOfOne - connectionsOf(connection.user)};
        if (rank.first < standingOf(user) && (!least || rank < leastRank)) {
            least = name;
            leastRank = rank;
        }
    }
    return least;
}

std::optional<UserId> Users::userOf(std::string_view connection) const {
    const auto found = m_connections.find(connection);
    return found == m_connections.end() ? std::nullopt : std::optional{found->second.user};
}

bool Users::setSession(std::string_view connection, const std::string& id) {
    const auto found = m_connections.find(connection);
    if (found == m_connections.end()) {
        return true;
    }
    const UserId user = found->second.user;
    auto& words = m_users.at(user).words;
    if (words.size() >= mostSessionsOfOne && !words.contains(id)) {
        return false;
    }
    words.try_emplace(id);
    forgetIfGone(user, std::exchange(found->second.session, id));
    return true;
}

// Either word takes the place of what was said before the user's program vanished, also if that one
// had named no session.
void Users::setTap(std::string_view connection, bool on) {
    const auto found = m_connections.find(connection);
    if (found == m_connections.end()) {
        return;
    }
    found->second.wantsTap = on;
    const UserId user = found->second.user;
    endHold(user, found->second.session);
    endHold(user, {});
}

void Users::change(std::string_view connection, const std::function<void(UserWish&)>& change) {
    const auto found = m_connections.find(connection);
    if (found != m_connections.end()) {
        change(m_users.at(found->second.user).words.at(found->second.session).wish);
    }
}

void Users::vanish(std::string_view connection, Moment now) {
    const auto found = m_connections.find(connection);
    if (found == m_connections.end()) {
        return;
    }
    const Connection gone = found->second;
    m_connections.erase(found);
    if (gone.wantsTap && !isConnectionWanting(gone.user, gone.session)) {
        m_users.at(gone.user).words.at(gone.session).end = now + holdTime;
    }
    forgetIfGone(gone.user, gone.session);
}

void Users::vanishAll(Moment now) {
    for (const std::string& connection : connections()) {
        vanish(connection, now);
    }
}

void Users::passTime(Moment now) {
    std::vector<std::pair<UserId, std::string>> over;
    for (const auto& [id, user] : m_users) {
        for (const auto& [session, words] : user.words) {
            if (words.end && *words.end <= now) {
                over.emplace_back(id, session);
            }
        }
    }
    for (const auto& [id, session] : over) {
        endHold(id, session);
    }
}

std::optional<Moment> Users::nextChange() const {
    std::optional<Moment> next;
    for (const auto& [id, user] : m_users) {
        for (const auto& [session, words] : user.words) {
            if (words.end && (!next || *words.end < *next)) {
                next = words.end;
            }
        }
    }
    return next;
}

void Users::sessionIs(const std::optional<ActiveSession>& active) {
    m_active = active;
    const auto found = active ? m_users.find(active->user) : m_users.end();
    if (found == m_users.end()) {
        return;
    }
    const std::string last = std::exchange(found->second.lastSession, active->id);
    if (!last.empty() && last != active->id) {
        endHold(found->first, {});
    }
}

bool Users::wantsTap(UserId user) const {
    return wordsThatCount(user) != nullptr;
}

UserWish Users::wishOf(UserId user) const {
    if (const Words* const words = wordsThatCount(user)) {
        return words->wish;
    }
    const auto found = m_users.find(user);
    if (found == m_users.end()) {
        return {};
    }
    const auto words = found->second.words.find(std::string_view{});
    return words == found->second.words.end() ? UserWish{} : words->second.wish;
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

bool Users::isConnected(UserId user, std::string_view session) const {
    return std::any_of(m_connections.begin(), m_connections.end(), [&](const auto& entry) {
        return entry.second.user == user && entry.second.session == session;
    });
}

bool Users::isConnectionWanting(UserId user, std::string_view session) const {
    return std::any_of(m_connections.begin(), m_connections.end(), [&](const auto& entry) {
        return entry.second.user == user && entry.second.session == session &&
               entry.second.wantsTap;
    });
}

// Returns what was said for a session if the tap is wanted there.
const Users::Words* Users::wordsWanting(UserId user, std::string_view session) const {
    const auto found = m_users.find(user);
    if (found == m_users.end()) {
        return nullptr;
    }
    const auto words = found->second.words.find(session);
    const bool isWanted = words != found->second.words.end() &&
                          (words->second.end || isConnectionWanting(user, session));
    return isWanted ? &words->second : nullptr;
}

// Whoever speaks for the very session that has the keyboard goes before whoever names none.
const Users::Words* Users::wordsThatCount(UserId user) const {
    if (m_active && m_active->user == user) {
        if (const Words* const words = wordsWanting(user, m_active->id)) {
            return words;
        }
    }
    return wordsWanting(user, {});
}

void Users::endHold(UserId user, const std::string& session) {
    auto& words = m_users.at(user).words;
    if (const auto found = words.find(session); found != words.end()) {
        found->second.end.reset();
        forgetIfGone(user, session);
    }
}

void Users::forgetIfGone(UserId user, const std::string& session) {
    auto& words = m_users.at(user).words;
    const auto found = words.find(session);
    if (!isConnected(user, session) && found != words.end() && !found->second.end) {
        words.erase(found);
    }
    if (words.empty()) {
        m_users.erase(user);
    }
}

} // namespace pallistrom
