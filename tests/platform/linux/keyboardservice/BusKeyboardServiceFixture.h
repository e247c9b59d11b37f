// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "EventLoop.h"
#include "FakeBusService.h"
#include "PrivateBus.h"
#include "RecordedLog.h"
#include "platform/linux/keyboardservice/BusKeyboardService.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <vector>

namespace pallistrom {

/// A bus, a service on it or not, and what the desktop program makes of both.
class BusKeyboardServiceTest : public testing::Test {
protected:
    BusKeyboardServiceTest() {
        static_cast<void>(RecordedLog::take());
        QObject::connect(&client, &KeyboardService::changed, &client, [this] {
            heard.push_back(client.obstacle());
        });
    }

    void startService(FakeBusService::Answers answers = {}) {
        service = std::make_unique<FakeBusService>(answers);
        ASSERT_TRUE(loop.runUntil([this] { return service->isThere(); }));
    }

    [[nodiscard]] bool hearsUntil(std::optional<Obstacle> obstacle) {
        return loop.runUntil([&] { return client.obstacle() == obstacle; });
    }

    /// Waits until the bus has handled all that the client has sent so far, and the service has
    /// answered it.
    void settle() {
        service->take();
        client.setFrontApplication(FrontApplication::EditsBySelection);
        EXPECT_TRUE(loop.runUntil([this] {
            const auto& asked = service->asked();
            return !asked.empty() && asked.back() == "SetFrontApplication 2";
        }));
    }

    EventLoop loop;
    PrivateBus bus;
    std::unique_ptr<FakeBusService> service;
    BusKeyboardService client;
    std::vector<std::optional<Obstacle>> heard; ///< each change
};

} // namespace pallistrom
