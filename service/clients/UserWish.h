// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/keys/ModifierTable.h"

#include <cstdint>

namespace pallistrom {

/// What a user's desktop program has said about the keys.
struct UserWish {
    std::uint32_t switches = 0; ///< a bit for each shortcut, the first one lowest
    ModifierTable modifiers = ModifierTable::standard();
    FrontApplication front = FrontApplication::TakesEditingKeys;

    friend bool operator==(const UserWish&, const UserWish&) = default;
};

} // namespace pallistrom
