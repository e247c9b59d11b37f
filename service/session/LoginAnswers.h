// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/session/LoginState.h"

#include <systemd/sd-bus.h>

#include <optional>
#include <set>
#include <string>
#include <string_view>

/// What the login manager answers, read. An answer that is an error, or not made as it should be,
/// reads as "no": no session, nobody, not asleep.
namespace pallistrom::LoginAnswers {

/// The seat that has the machine's own keyboard.
inline constexpr std::string_view seat = "seat0";

/// Reads Manager.PreparingForSleep.
[[nodiscard]] bool isGoingToSleep(sd_bus_message* answer);

/// Reads Manager.ListSessions(): whose sessions are at the seat.
[[nodiscard]] std::set<UserId> localUsers(sd_bus_message* answer);

/// Reads Seat.ActiveSession. Returns the session's object.
[[nodiscard]] std::optional<std::string> activeSession(sd_bus_message* answer);

/// Reads all properties of a session. Returns nothing for one in which no person works: of a login
/// screen or a lock screen, or one that is closing.
[[nodiscard]] std::optional<ActiveSession> session(sd_bus_message* answer);

} // namespace pallistrom::LoginAnswers
