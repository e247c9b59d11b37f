// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/Obstacle.h"
#include "platform/linux/keyboardservice/KeyboardService.h"

#include <optional>
#include <string>

namespace pallistrom {

/// What the access pane shows is made from this.
struct AccessState {
    std::optional<Obstacle> session; ///< what keeps keys from being filtered at all
    std::optional<Obstacle> service; ///< what keeps the keyboard service from it
    KeyboardService::Request request;
};

/// What the access pane tells: whether keys can be filtered, and why or why not.
struct AccessText {
    std::string headline;
    std::string explanation;

    [[nodiscard]] static AccessText about(const AccessState& state);
};

} // namespace pallistrom
