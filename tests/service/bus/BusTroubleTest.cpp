// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ServiceTest.h"

// What becomes of the service when the bus goes away.

namespace pallistrom {

namespace {

using ServiceInBusTrouble = ServiceTest;

} // namespace

TEST_F(ServiceInBusTrouble, goesOnOnceTheBusIsBack) {
    grantFromBefore(me());
    start();
    {
        Client client{loop};
        call(client, "SetSwitches", "u", 0b0010U);
        call(client, "SetTap", "b", 1);
        bus.stop();
        ASSERT_TRUE(
            loop.runUntil([&] { return isLogged("the connection to the system bus is over"); }));
    }
    login.reset();
    authority.reset();
    EXPECT_TRUE(keys.isAllowed) << "the keys are none of the bus's business";

    bus.start();
    login = std::make_unique<FakeLogin>(loop);
    login->open({.id = "1", .user = me()});
    login->activate("1");
    const Connection observer{loop};
    ASSERT_TRUE(loop.runUntil([&] {
        return sd_bus_get_name_creds(observer.get(), "org.pallistrom.Keyboard1", 0, nullptr) >= 0;
    }));
    EXPECT_TRUE(keys.isAllowed) << "the program has its time to come back";
    Client again{loop};
    EXPECT_EQ(accessOf(again), Access::Granted);
    call(again, "SetTap", "b", 1);
    EXPECT_TRUE(keys.isAllowed);
    call(again, "SetTap", "b", 0);
    EXPECT_FALSE(keys.isAllowed);
}

TEST_F(ServiceInBusTrouble, takesAQuestionThatWasCutOffForNoAnswer) {
    grantFromBefore(me());
    start();
    Client client{loop};
    call(client, "SetTap", "b", 1);
    login->fallSilent();
    login->lock("1", false);
    ASSERT_TRUE(loop.runUntil([&] { return login->unanswered() > 0; }));
    keys.calls.clear();
    bus.stop();
    ASSERT_TRUE(loop.runUntil([&] { return isLogged("connection to the system bus is over"); }));
    EXPECT_THAT(keys.calls, testing::IsEmpty());
    EXPECT_TRUE(keys.isAllowed);
}

TEST_F(ServiceInBusTrouble, saysSoOnceAndKeepsTrying) {
    bus.stop();
    service = std::make_unique<Service>(loop.get(), keys, tap, GrantFile{folder.path()});
    service->start();
    bus.start();
    login = std::make_unique<FakeLogin>(loop);
    const Connection observer{loop};
    EXPECT_TRUE(loop.runUntil([&] {
        return sd_bus_get_name_creds(observer.get(), "org.pallistrom.Keyboard1", 0, nullptr) >= 0;
    }));
    EXPECT_EQ(std::count_if(platform.log.begin(),
                            platform.log.end(),
                            [](const std::string& line) {
                                return line.find("trying again") != std::string::npos;
                            }),
              1);
}

} // namespace pallistrom
