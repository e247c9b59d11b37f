// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/clients/Moment.h"
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
/// the bus. What is said through it holds for its user, and of several connections of one user the
/// last word counts; the tap is wanted as long as one of them wants it.
///
/// A connection that ends while it wants the tap leaves a hold on it: for a while the user's wishes
/// stand as they are, so that a program that crashed can come back. Whoever says goodbye leaves
/// none.
///
/// Every operation ignores connections that were never added.
class Users {
public:
    static constexpr Moment holdTime = std::chrono::seconds{30};
    static constexpr std::size_t mostConnectionsOfOne = 8;
    static constexpr std::size_t mostConnections = 64;

    /// Returns false if there are too many connections already.
    [[nodiscard]] bool add(std::string_view connection, UserId user);

    [[nodiscard]] std::optional<UserId> userOf(std::string_view connection) const;

    void setTap(std::string_view connection, bool on);

    /// Changes what the user of `connection` wants.
    void change(std::string_view connection, const std::function<void(UserWish&)>& change);

    /// The connection has ended without more words.
    void vanish(std::string_view connection, Moment now);

    /// All connections have ended, as when the bus goes away.
    void vanishAll(Moment now);

    /// Ends the holds whose time has come.
    void passTime(Moment now);

    /// When passTime() will have something to do.
    [[nodiscard]] std::optional<Moment> nextChange() const;

    /// Tells which session the keyboard belongs to now. A hold from an earlier session of the same
    /// user ends.
    void sessionIs(const std::optional<ActiveSession>& active);

    [[nodiscard]] bool wantsTap(UserId user) const;

    /// What `user` wants; what nobody has said is as in a UserWish that is new.
    [[nodiscard]] UserWish wishOf(UserId user) const;

    [[nodiscard]] std::vector<std::string> connections() const;

private:
    struct Connection {
        UserId user = 0;
        bool wantsTap = false;
    };

    struct User {
        UserWish wish;
        std::string session;       ///< the last one of the user's that had the keyboard
        std::optional<Moment> end; ///< of the hold, if there is one
    };

    [[nodiscard]] std::size_t connectionsOf(UserId user) const;
    [[nodiscard]] bool isConnectionWanting(UserId user) const;
    void forgetIfGone(UserId user);
    void endHold(UserId user);

    std::map<std::string, Connection, std::less<>> m_connections;
    std::map<UserId, User> m_users; ///< of those who are connected or have a hold
};

} // namespace pallistrom
