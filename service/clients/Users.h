// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/clients/Moment.h"
#include "service/clients/Standing.h"
#include "service/clients/UserWish.h"
#include "service/session/LoginState.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

/// Who is connected, and what each user wants of the keyboard. A connection is known by its name on
/// the bus. What is said through it holds for its user and, if it has named its session, as long as
/// that one has the keyboard: of a user's programs on several terminals each is heard on its own.
/// What is said through a connection that has named none holds in any session of the user's in
/// which nobody else wants the tap. Where several speak for the same the last word counts; the tap
/// is wanted as long as one of them wants it.
///
/// A connection that ends while it wants the tap leaves a hold on it: for a while the wishes stand
/// as they are, so that a program that crashed can come back. Whoever says goodbye leaves none.
///
/// Every operation ignores connections that were never added.
class Users {
public:
    static constexpr Moment holdTime = std::chrono::seconds{30};
    static constexpr std::size_t mostConnectionsOfOne = 8;
    static constexpr std::size_t mostConnections = 64;
    static constexpr std::size_t mostSessionsOfOne = 16;

    /// Returns false if there are too many connections already.
    [[nodiscard]] bool add(std::string_view connection, UserId user);

    /// Returns whose end makes room for a connection of `user`, if there is none: a connection of
    /// those who matter least, and less than `user`, and among them of who has most. Nothing if
    /// `user` has too many itself, or if all matter as much.
    [[nodiscard]] std::optional<std::string>
    whoMakesRoomFor(UserId user, const std::function<Standing(UserId)>& standingOf) const;

    [[nodiscard]] std::optional<UserId> userOf(std::string_view connection) const;

    /// The connection speaks for the session `id` from now on. What it has said before is not taken
    /// along, but for the tap. Returns false if the user has too many sessions already.
    [[nodiscard]] bool setSession(std::string_view connection, const std::string& id);

    void setTap(std::string_view connection, bool on);

    /// Changes what those want for whom `connection` speaks.
    void change(std::string_view connection, const std::function<void(UserWish&)>& change);

    /// The connection has ended without more words.
    void vanish(std::string_view connection, Moment now);

    /// All connections have ended, as when the bus goes away.
    void vanishAll(Moment now);

    /// Ends the holds whose time has come.
    void passTime(Moment now);

    /// When passTime() will have something to do.
    [[nodiscard]] std::optional<Moment> nextChange() const;

    /// Tells which session the keyboard belongs to now. A hold that names no session ends if it is
    /// from an earlier one of the same user.
    void sessionIs(const std::optional<ActiveSession>& active);

    [[nodiscard]] bool wantsTap(UserId user) const;

    /// What `user` wants; what nobody has said is as in a UserWish that is new.
    [[nodiscard]] UserWish wishOf(UserId user) const;

    [[nodiscard]] std::vector<std::string> connections() const;

private:
    struct Connection {
        UserId user = 0;
        std::string session{}; ///< empty if it has named none
        bool wantsTap = false;
    };

    /// What was said for one session of a user, or for none that has a name.
    struct Words {
        UserWish wish;
        std::optional<Moment> end; ///< of the hold, if there is one
    };

    struct User {
        std::map<std::string, Words, std::less<>> words{}; ///< by the session's name
        std::string lastSession{}; ///< the last one of the user's that had the keyboard
    };

    [[nodiscard]] std::size_t connectionsOf(UserId user) const;
    [[nodiscard]] bool isConnected(UserId user, std::string_view session) const;
    [[nodiscard]] bool isConnectionWanting(UserId user, std::string_view session) const;
    [[nodiscard]] const Words* wordsWanting(UserId user, std::string_view session) const;
    [[nodiscard]] const Words* wordsThatCount(UserId user) const;
    void endHold(UserId user, const std::string& session);
    void forgetIfGone(UserId user, const std::string& session);

    std::map<std::string, Connection, std::less<>> m_connections;
    std::map<UserId, User> m_users; ///< of those who are connected or have a hold
    std::optional<ActiveSession> m_active;
};

} // namespace pallistrom
