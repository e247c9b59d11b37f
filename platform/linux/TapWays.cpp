// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/TapWays.h"

#include "platform/linux/applications/ApplicationKinds.h"
#include "platform/linux/x11/X11Tap.h"

#include <array>

namespace pallistrom {

std::span<TapWay* const> tapWays() {
    static X11Tap x11Tap([](const WindowClass& window) {
        return ApplicationKinds::ofSession().kindOfFront(window);
    });
    static const std::array<TapWay*, 1> ways{&x11Tap};
    return ways;
}

std::optional<Obstacle> obstacleOfSession() {
    std::optional<Obstacle> first;
    for (TapWay* const way : tapWays()) {
        const auto obstacle = way->obstacle();
        if (!obstacle) {
            return std::nullopt;
        }
        first = first ? first : obstacle;
    }
    return first;
}

} // namespace pallistrom
