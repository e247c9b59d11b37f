// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/grants/Grants.h"
#include "service/session/LoginState.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace pallistrom {

/// What is in the way of filtering keys.
enum class Hindrance : std::uint8_t {
    NoKeyboard, ///< no virtual keyboard can be made here
    NoSession,  ///< nobody's session has the keyboard
    Asleep,     ///< the machine is going to sleep
    Locked,
    NotGranted,
    Suspended, ///< granted, but the panic chord was pressed
    NotWanted, ///< the user's program does not ask for it
};

/// All that decides whether keys are filtered now.
struct FilterSituation {
    bool isKeyboardPossible = false;
    LoginState login;
    std::optional<Grant> grant; ///< of the user of the active session, as is the next
    bool isWanted = false;
};

/// Returns what is in the way; nothing if keys are to be filtered, for the user of the active
/// session and nobody else. Of several hindrances it is the one that is furthest from the user.
[[nodiscard]] std::optional<Hindrance> hindranceTo(const FilterSituation& situation);

/// Returns words for the system log.
[[nodiscard]] std::string_view describe(Hindrance hindrance);

} // namespace pallistrom
