// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/LoginItem.h"

#include "AutostartHome.h"
#include "pallistrom/Names.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;
using enum SMAppServiceStatus;

// The places are found once, so all of it is one test.
TEST(LoginItem, isAnEntryOfThisProgramInTheUsersAutostartFolder) {
    const AutostartHome home;
    const auto set = [](const char* name, const std::string& value) {
        setenv(name, value.c_str(), 1); // NOLINT(concurrency-mt-unsafe)
    };
    set("XDG_CONFIG_HOME", home.config());
    set("XDG_CONFIG_DIRS", home.path() / "etc");
    set("XDG_CURRENT_DESKTOP", "Test:Other");
    const auto name = std::string(Names::applicationId) + ".desktop";
    const auto file = home.folder() / name;

    const auto service = SMAppService::mainAppService();
    EXPECT_EQ(service.status(), SMAppServiceStatusNotRegistered);
    EXPECT_FALSE(service.registerAndReturnError());
    EXPECT_EQ(service.status(), SMAppServiceStatusEnabled);
    const auto program = fs::read_symlink("/proc/self/exe").string();
    EXPECT_NE(AutostartHome::text(file).find("TryExec=" + program + "\n"), std::string::npos);
    AutostartHome::put(file, AutostartHome::text(file) + "NotShowIn=Test;\n");
    EXPECT_EQ(service.status(), SMAppServiceStatusRequiresApproval);
    EXPECT_FALSE(service.unregisterAndReturnError());
    EXPECT_EQ(service.status(), SMAppServiceStatusNotRegistered);

    fs::remove(file);
    AutostartHome::put(home.path() / "etc" / "autostart" / name,
                       "[Desktop Entry]\nType=Application\nExec=" + program + "\n");
    EXPECT_EQ(service.status(), SMAppServiceStatusEnabled);
}

} // namespace

} // namespace pallistrom
