// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/FrontWatch.h"

#include "platform/linux/applications/ApplicationKinds.h"
#include "platform/linux/front/AccessibilityFrontSource.h"
#include "platform/linux/front/BusFrontSource.h"
#include "platform/linux/front/SessionFrontWatch.h"
#include "platform/linux/front/ToplevelSource.h"
#include "platform/linux/front/X11FrontSource.h"
#include "platform/linux/wayland/WaylandClient.h"
#include "platform/linux/x11/X11Session.h"

#include <utility>

namespace pallistrom {

std::unique_ptr<FrontWatch> FrontWatch::ofSession(std::function<void()> whenChanged) {
    auto watch = std::make_unique<SessionFrontWatch>(
        [](const WindowClass& window) { return ApplicationKinds::ofSession().kindOfFront(window); },
        std::move(whenChanged));
    if (auto connection = X11Session::open()) {
        watch->addSource([&connection](auto changed) {
            return std::make_unique<X11FrontSource>(std::move(connection), std::move(changed));
        });
        return watch;
    }
    if (WaylandClient::isWaylandSession()) {
        watch->addSource(
            [](auto changed) { return std::make_unique<ToplevelSource>(std::move(changed)); });
        watch->addSource([](auto changed) {
            return std::make_unique<BusFrontSource>(QDBusConnection::sessionBus(),
                                                    std::move(changed));
        });
        watch->addSource([](auto changed) {
            return std::make_unique<AccessibilityFrontSource>(std::move(changed));
        });
    }
    return watch;
}

} // namespace pallistrom
