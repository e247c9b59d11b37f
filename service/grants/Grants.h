// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <map>
#include <optional>

namespace pallistrom {

/// That a user may have keys filtered.
enum class Grant : std::uint8_t {
    Given,
    Suspended, ///< by the panic chord, until the user takes that back
};

/// All grants that were given.
using Grants = std::map<uid_t, Grant>;

/// Returns the grant of `user`, if there is one.
[[nodiscard]] inline std::optional<Grant> grantOf(const Grants& grants, uid_t user) {
    const auto found = grants.find(user);
    return found == grants.end() ? std::nullopt : std::optional{found->second};
}

} // namespace pallistrom
