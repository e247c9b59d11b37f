// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Menu.h"

#include <cstddef>
#include <vector>

namespace pallistrom {

/// One step from the menu on show to another.
struct MenuStep {
    enum class Kind {
        Insert, ///< `item` before what is at `index`
        Remove, ///< what is at `index`
        Change, ///< what is at `index`, which stays the same item, to look like `item`
    };

    Kind kind = Kind::Change;
    std::size_t index = 0;
    NSMenuItem item;
};

/// Returns the steps that make `wanted` out of `shown`, in order; an index counts in the menu as
/// the steps before have made it. Items that only look different stay where they are, because
/// panels lay a menu out anew, and lose the place in it, when items come and go. No difference, no
/// steps.
[[nodiscard]] std::vector<MenuStep> menuDifference(const NSMenu& shown, const NSMenu& wanted);

} // namespace pallistrom
