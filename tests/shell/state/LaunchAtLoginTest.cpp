// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "shell/state/LaunchAtLogin.h"

#include "FakePlatform.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pallistrom {

namespace {

using enum SMAppServiceStatus;

using Calls = std::vector<std::string>;

struct Case {
    SMAppServiceStatus status;
    bool wanted;
    Calls calls;
};

void PrintTo(const Case& each, std::ostream* out) {
    *out << "status " << static_cast<int>(each.status)
         << (each.wanted ? " wants on" : " wants off");
}

class LaunchAtLoginFrom : public testing::TestWithParam<Case> {
protected:
    fake::Platform platform;
};

TEST_P(LaunchAtLoginFrom, asksTheSystemOnlyForWhatChangesSomething) {
    platform.loginItemStatus = GetParam().status;
    LaunchAtLogin::set(GetParam().wanted);
    EXPECT_EQ(platform.calls, GetParam().calls);
    EXPECT_TRUE(platform.log.empty());
}

INSTANTIATE_TEST_SUITE_P(
    EveryStatus,
    LaunchAtLoginFrom,
    testing::Values(Case{SMAppServiceStatusNotRegistered, true, {"registerLoginItem"}},
                    Case{SMAppServiceStatusEnabled, true, {}},
                    Case{SMAppServiceStatusRequiresApproval, true, {"registerLoginItem"}},
                    Case{SMAppServiceStatusNotFound, true, {"registerLoginItem"}},
                    Case{SMAppServiceStatusNotRegistered, false, {}},
                    Case{SMAppServiceStatusEnabled, false, {"unregisterLoginItem"}},
                    Case{SMAppServiceStatusRequiresApproval, false, {}},
                    Case{SMAppServiceStatusNotFound, false, {}}));

class LaunchAtLoginTest : public testing::Test {
protected:
    fake::Platform platform;
};

TEST_F(LaunchAtLoginTest, isEnabledInOneStatusOnly) {
    for (const auto status : {SMAppServiceStatusNotRegistered,
                              SMAppServiceStatusEnabled,
                              SMAppServiceStatusRequiresApproval,
                              SMAppServiceStatusNotFound}) {
        platform.loginItemStatus = status;
        EXPECT_EQ(LaunchAtLogin::isEnabled(), status == SMAppServiceStatusEnabled);
    }
}

TEST_F(LaunchAtLoginTest, logsARefusalOnceAndStaysAsItWas) {
    platform.loginItemRefusal = NSError{"100 %s of it"};
    LaunchAtLogin::set(true);
    EXPECT_EQ(platform.log, Calls{"Pallistrom: launch-at-login change failed: 100 %s of it"});
    EXPECT_FALSE(LaunchAtLogin::isEnabled());
}

TEST_F(LaunchAtLoginTest, logsARefusalToBeUnregisteredToo) {
    platform.loginItemStatus = SMAppServiceStatusEnabled;
    platform.loginItemRefusal = NSError{"no"};
    LaunchAtLogin::set(false);
    EXPECT_EQ(platform.log, Calls{"Pallistrom: launch-at-login change failed: no"});
    EXPECT_TRUE(LaunchAtLogin::isEnabled());
}

} // namespace

} // namespace pallistrom
