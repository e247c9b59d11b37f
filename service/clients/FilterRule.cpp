// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/clients/FilterRule.h"

namespace pallistrom {

std::optional<Hindrance> hindranceTo(const FilterSituation& situation) {
    if (!situation.isKeyboardPossible) {
        return Hindrance::NoKeyboard;
    }
    if (!situation.login.active) {
        return Hindrance::NoSession;
    }
    if (situation.login.isGoingToSleep) {
        return Hindrance::Asleep;
    }
    if (situation.login.active->isLocked) {
        return Hindrance::Locked;
    }
    if (!situation.grant) {
        return Hindrance::NotGranted;
    }
    if (*situation.grant == Grant::Suspended) {
        return Hindrance::Suspended;
    }
    if (!situation.isWanted) {
        return Hindrance::NotWanted;
    }
    return std::nullopt;
}

std::string_view describe(Hindrance hindrance) {
    switch (hindrance) {
    case Hindrance::NoKeyboard:
        return "no virtual keyboard can be made here";
    case Hindrance::NoSession:
        return "no session has the keyboard";
    case Hindrance::Asleep:
        return "the machine is going to sleep";
    case Hindrance::Locked:
        return "the session is locked";
    case Hindrance::NotGranted:
        return "it was not granted";
    case Hindrance::Suspended:
        return "the panic chord was pressed";
    case Hindrance::NotWanted:
        return "nobody asks for it";
    }
    return {};
}

} // namespace pallistrom
