// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ServiceTest.h"

#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"
#include "pallistrom/Names.h"

#include <unistd.h>

#include <algorithm>
#include <fstream>

namespace pallistrom {

ServiceTest::ServiceTest() : tap{ShortcutLibrary::all} {
    login->open({.id = "1", .user = me()});
    login->activate("1");
}

void ServiceTest::start() {
    service = std::make_unique<Service>(loop.get(), keys, tap, GrantFile{folder.path()});
    service->start();
    const Connection observer{loop};
    ASSERT_TRUE(loop.runUntil([&] {
        return sd_bus_get_name_creds(observer.get(), Names::keyboardBusName.data(), 0, nullptr) >=
               0;
    }));
}

void ServiceTest::grantFromBefore(UserId user) const {
    GrantStore{GrantFile{folder.path()}}.give(user);
}

ServiceTest::Access ServiceTest::accessOf(Client& client) {
    const Outcome outcome = call(client, "GetAccess");
    EXPECT_EQ(outcome.error, "");
    return static_cast<Access>(outcome.value.value_or(99));
}

bool ServiceTest::becomesAllowed(bool isAllowed) const {
    return loop.runUntil([&] { return keys.isAllowed == isAllowed; });
}

std::size_t ServiceTest::timesLogged(std::string_view text) const {
    return static_cast<std::size_t>(
        std::count_if(platform.log.begin(), platform.log.end(), [&](const std::string& line) {
            return line.find(text) != std::string::npos;
        }));
}

// The service's answer to a new caller comes after all that was on its way before, but for what it
// asks others itself.
void ServiceTest::settle() {
    Client client{loop};
    call(client, "GetAccess");
}

UserId ServiceTest::me() {
    return getuid();
}

} // namespace pallistrom
