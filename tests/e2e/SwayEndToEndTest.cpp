// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Deadline.h"
#include "Home.h"
#include "Pallistrom.h"
#include "ScreenReader.h"
#include "SessionBus.h"
#include "SettingsFile.h"
#include "SwayDisplay.h"
#include "Tools.h"
#include "TrayMenu.h"
#include "XServer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace pallistrom::e2e {

namespace {

TEST(Sway, hasTheProgramInItsBarWithAllThatItsMenuOpens) {
    const std::string missing = missingPrograms({"Xvfb",
                                                 "sway",
                                                 "waybar",
                                                 "grim",
                                                 "setpriv",
                                                 "dbus-daemon",
                                                 "gdbus",
                                                 "/usr/libexec/at-spi-bus-launcher",
                                                 ScreenReader::path(),
                                                 Pallistrom::path()});
    if (!missing.empty()) {
        GTEST_SKIP() << missing;
    }
    if (!std::filesystem::exists(QT_PLATFORM_FOLDER "/libqwayland-generic.so")) {
        GTEST_SKIP() << "not there: Qt's plug-in for Wayland";
    }
    const SwayDisplay display;
    // Not for the program: the registry of assistive technology does not run without one.
    const Home serverHome;
    const XServer server{{.arguments = {"Xvfb"}, .environment = serverHome.environment("")}};
    const SessionBus bus{server.name()};
    const ScreenReader reader{bus};
    const Waybar bar{display, bus};
    SettingsFile{bus.home().configFolder()}.set({{"hasCompletedOnboarding", true}});
    ChildProcess program{{.arguments = {Pallistrom::path()},
                          .environment = display.environment(bus),
                          .errorFile = bus.home().path() / "pallistrom.log"}};
    const TrayMenu menu{bus};
    EXPECT_TRUE(waitUntil([&] { return menu.items().size() == 14; }));
    EXPECT_TRUE(waitUntil([&] { return display.coloursInTheCorner(Waybar::height) > 3; }));

    // No way to the keys is known here, and the menu and the windows say so.
    const std::string warning = "⚠ Accessibility access needed";
    EXPECT_EQ(menu.items().at(0).label, warning);
    const auto isShown = [&](const char* title, const char* label) {
        return waitUntil([&] { return reader.find(title, "label", label).has_value(); });
    };
    EXPECT_TRUE(menu.choose("Settings…"));
    EXPECT_TRUE(isShown("Pallistrom Settings", "Waiting for Accessibility access"));
    EXPECT_TRUE(menu.choose("Onboarding…"));
    EXPECT_TRUE(isShown("Welcome to Pallistrom", "Step 1 of 4"));
    EXPECT_TRUE(menu.choose(warning));
    EXPECT_TRUE(waitUntil([&] { return !reader.window("Accessibility Access").empty(); }));

    EXPECT_TRUE(menu.choose("⌃K   Delete to line end"));
    EXPECT_TRUE(waitUntil([&] {
        const auto control = reader.find("Pallistrom Settings", "check box", "Delete to line end");
        return control && control->isChecked();
    }));
    EXPECT_TRUE(menu.choose("Quit Pallistrom"));
    EXPECT_EQ(program.wait(), 0);
}

} // namespace

} // namespace pallistrom::e2e
