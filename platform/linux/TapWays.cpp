// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/TapWays.h"

#include "platform/linux/applications/ApplicationKinds.h"
#include "platform/linux/keyboardservice/ServiceTap.h"
#include "platform/linux/keyboardservice/SessionService.h"
#include "platform/linux/x11/X11Tap.h"

#include <array>

namespace pallistrom {

namespace {

// Never destroyed, like the other way: that would be after what Qt keeps in global objects, which
// some need for that.
ServiceTap& serviceTap() {
    static auto* const tap = new ServiceTap(keyboardService());
    return *tap;
}

} // namespace

std::span<TapWay* const> tapWays() {
    static auto* const x11Tap = new X11Tap([](const WindowClass& window) {
        return ApplicationKinds::ofSession().kindOfFront(window);
    });
    static const std::array<TapWay*, 2> ways{&serviceTap(), x11Tap};
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
        if (standsInEveryWay(*obstacle)) {
            return obstacle;
        }
    }
    return first;
}

bool knowsWhoIsInFront() {
    return serviceTap().knowsWhoIsInFront();
}

} // namespace pallistrom
