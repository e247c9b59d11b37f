// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "AutostartHome.h"
#include "platform/linux/loginitem/AutostartFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

// Our entry as other programs see it.

namespace pallistrom {

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr auto* generator = "/usr/lib/systemd/user-generators/systemd-xdg-autostart-generator";

std::string quoted(const fs::path& path) {
    return '"' + path.string() + '"';
}

bool succeeds(const std::string& command) {
    return std::system(command.c_str()) == 0; // NOLINT(cert-env33-c,concurrency-mt-unsafe)
}

class AutostartTakenUp : public testing::Test {
protected:
    // Makes units of the entries, as systemd does at login. Returns ours, if there is one.
    [[nodiscard]] std::string unit() const {
        const auto units = home.path() / "units";
        fs::create_directories(units);
        EXPECT_TRUE(succeeds("env -i PATH=/usr/bin:/bin HOME=" + quoted(home.path()) +
                             " XDG_CONFIG_HOME=" + quoted(home.config()) +
                             " XDG_CONFIG_DIRS=/nonexistent SYSTEMD_LOG_TARGET=null " + generator +
                             " " + quoted(units) + " " + quoted(units) + " " + quoted(units)));
        return AutostartHome::text(units / "app-pallistrom@autostart.service");
    }

    AutostartHome home;
    AutostartFile file{home.places()};
};

TEST_F(AutostartTakenUp, isAValidEntry) {
    if (!succeeds("command -v desktop-file-validate >/dev/null")) {
        GTEST_SKIP() << "not installed: desktop-file-validate";
    }
    ASSERT_FALSE(file.enable());
    EXPECT_TRUE(succeeds("desktop-file-validate --warn-kde " + quoted(home.file()) + " >&2"));
}

TEST_F(AutostartTakenUp, isStartedBySystemdUntilWeAreDisabledOrRemoved) {
    if (!fs::exists(generator)) {
        GTEST_SKIP() << "not installed: systemd-xdg-autostart-generator";
    }
    ASSERT_FALSE(file.enable());
    EXPECT_THAT(unit(), HasSubstr("\nExecStart=:" + home.program().string() + "\n"));

    fs::remove_all(home.path() / "units");
    AutostartHome::put(home.file(), AutostartHome::text(home.file()) + "# edited\n");
    ASSERT_FALSE(file.disable());
    EXPECT_EQ(unit(), "");

    ASSERT_FALSE(file.enable());
    fs::remove(home.program());
    EXPECT_EQ(unit(), "");
}

TEST_F(AutostartTakenUp, isStartedFromAFolderWithBlanksAndQuotes) {
    if (!fs::exists(generator)) {
        GTEST_SKIP() << "not installed: systemd-xdg-autostart-generator";
    }
    auto places = home.places();
    places.program = home.path() / "a 'b' c" / "pallistrom";
    AutostartHome::put(places.program, "");
    fs::permissions(places.program, fs::perms::owner_all);
    ASSERT_FALSE(AutostartFile(places).enable());
    EXPECT_THAT(unit(), HasSubstr("\nExecStart=:\"" + places.program.string() + "\"\n"));
}

} // namespace

} // namespace pallistrom
