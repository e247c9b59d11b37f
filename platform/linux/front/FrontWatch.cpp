// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/FrontWatch.h"

#include "platform/linux/applications/ApplicationKinds.h"
#include "platform/linux/front/X11FrontWatch.h"
#include "platform/linux/x11/X11Session.h"

#include <utility>

namespace pallistrom {

namespace {

/// Of a session that nobody can tell anything about.
class UnknownFront final : public FrontWatch {
public:
    [[nodiscard]] std::optional<FrontApplication> application() const override {
        return std::nullopt;
    }
};

} // namespace

std::unique_ptr<FrontWatch> FrontWatch::ofSession(std::function<void()> whenChanged) {
    if (auto connection = X11Session::open()) {
        return std::make_unique<X11FrontWatch>(
            std::move(connection),
            [](const WindowClass& window) {
                return ApplicationKinds::ofSession().kindOfFront(window);
            },
            std::move(whenChanged));
    }
    return std::make_unique<UnknownFront>();
}

} // namespace pallistrom
