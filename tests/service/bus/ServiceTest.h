// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Client.h"
#include "FakeAuthority.h"
#include "FakeKeyControl.h"
#include "FakeLogin.h"
#include "FakePlatform.h"
#include "Loop.h"
#include "SystemBus.h"
#include "TemporaryFolder.h"
#include "engine/EventTapController.h"
#include "service/Service.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace pallistrom {

/// The whole service with keyboards that do as they are told, on a bus with a login manager, an
/// authority and this test's user in the active session.
class ServiceTest : public testing::Test {
protected:
    using Access = KeyboardInterface::Access;
    using GrantAnswer = KeyboardInterface::GrantAnswer;

    ServiceTest();

    /// Starts the service and waits until it has its name.
    void start();

    void stop() { service.reset(); }

    /// As a file of an earlier service says.
    void grantFromBefore(UserId user) const;

    /// Calls and waits for the answer.
    template<typename... Arguments>
    Outcome
    call(Client& client, const char* method, const char* signature = "", Arguments... arguments) {
        const auto outcome = client.call(method, signature, arguments...);
        EXPECT_TRUE(loop.runUntil([&] { return outcome->isHere; })) << method << " is not answered";
        return *outcome;
    }

    Access accessOf(Client& client);

    /// Waits until keys may be filtered or may not be any more.
    [[nodiscard]] bool becomesAllowed(bool isAllowed) const;

    /// Whether a line of the log has `text` in it.
    [[nodiscard]] bool isLogged(std::string_view text) const { return timesLogged(text) > 0; }

    /// How many lines of the log have `text` in them.
    [[nodiscard]] std::size_t timesLogged(std::string_view text) const;

    /// Waits until all that has been sent to the service so far was served.
    void settle();

    /// This test's own.
    static UserId me();

    fake::Platform platform;
    TemporaryFolder folder;
    SystemBus bus;
    Loop loop;
    std::unique_ptr<FakeLogin> login = std::make_unique<FakeLogin>(loop);
    std::unique_ptr<FakeAuthority> authority = std::make_unique<FakeAuthority>(loop);
    FakeKeyControl keys;
    EventTapController tap;
    std::unique_ptr<Service> service;
};

} // namespace pallistrom
