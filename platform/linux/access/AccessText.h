// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/Obstacle.h"

#include <optional>
#include <string_view>

namespace pallistrom {

/// What the access pane tells: whether keys can be filtered, and why or why not.
struct AccessText {
    std::string_view headline;
    std::string_view explanation;

    [[nodiscard]] static AccessText about(std::optional<Obstacle> obstacle);
};

} // namespace pallistrom
