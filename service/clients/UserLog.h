// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/session/LoginState.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace pallistrom {

/// What the system log says of users. What it has said last is not said again, so that nobody fills
/// it by asking for the same once more. It remembers no more than so many things, as one person can
/// have thousands of user numbers.
class UserLog {
public:
    static constexpr std::size_t mostRemembered = 256;

    enum class About : std::uint8_t {
        Access,
        Grant,
        Connections,
    };

    /// Writes a line of which `what` is the end ("has access").
    void say(UserId user, About about, std::string_view what);

private:
    std::map<std::pair<UserId, About>, std::string> m_said;
};

} // namespace pallistrom
