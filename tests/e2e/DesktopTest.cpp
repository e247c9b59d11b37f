// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "DesktopTest.h"

#include "Deadline.h"
#include "Pallistrom.h"
#include "Tools.h"

#include <csignal>
#include <fstream>
#include <iterator>

namespace pallistrom::e2e {

namespace {

constexpr const char* programName = "org.pallistrom.Pallistrom";
constexpr const char* programObject = "/org/pallistrom/Pallistrom";
constexpr const char* logFile = "pallistrom.log";

} // namespace

void DesktopTest::start(const std::vector<std::string>& serverArguments) {
    if (programFile.empty()) {
        programFile = Pallistrom::path();
    }
    const std::string missing = missingPrograms({"Xvfb",
                                                 "openbox",
                                                 "xdotool",
                                                 "dbus-daemon",
                                                 "gdbus",
                                                 "xfce4-panel",
                                                 "/usr/libexec/at-spi-bus-launcher",
                                                 ScreenReader::path(),
                                                 programFile});
    if (!missing.empty()) {
        GTEST_SKIP() << missing;
    }
    display.emplace(serverArguments);
    bus.emplace(display->name());
    reader.emplace(*bus);
    screen.emplace(display->name());
    keys.emplace(display->name());
    connection.emplace(display->name());
    menu.emplace(*bus);
    environment = bus->environment();
}

void DesktopTest::launch() {
    program.emplace(Command{.arguments = {programFile},
                            .environment = environment,
                            .errorFile = bus->home().path() / logFile});
}

void DesktopTest::launchPastTheGuide() {
    settings().set({{"hasCompletedOnboarding", true}});
    startPanel();
    launch();
    ASSERT_TRUE(waitUntil([&] { return !menu->items().empty(); })) << log();
}

void DesktopTest::terminate() {
    program->signal(SIGTERM);
    EXPECT_EQ(program->wait(), 128 + SIGTERM);
}

bool DesktopTest::activate(const std::string& action) const {
    return bus->call(programName,
                     programObject,
                     "org.freedesktop.Application.ActivateAction",
                     {action, "[]", "{}"});
}

void DesktopTest::openSettings() const {
    ASSERT_TRUE(waitUntil([&] { return activate("showSettings"); }));
    ASSERT_TRUE(windowIsShown(settingsTitle));
    EXPECT_EQ(thing(settingsTitle, "push button", "Quit Pallistrom").name, "Quit Pallistrom");
}

bool DesktopTest::windowIsShown(const std::string& title) const {
    return waitUntil([&] { return screen->hasWindow(title); });
}

bool DesktopTest::windowIsGone(const std::string& title) const {
    return waitUntil([&] { return !screen->hasWindow(title); });
}

Accessible DesktopTest::thing(const std::string& title,
                              const std::string& role,
                              const std::string& name) const {
    std::optional<Accessible> found;
    static_cast<void>(waitUntil([&] {
        found = reader->find(title, role, name);
        return found.has_value();
    }));
    return found.value_or(Accessible{});
}

bool DesktopTest::switchIsOn(const std::string& title, const std::string& name) const {
    return waitUntil([&] {
        const auto found = reader->find(title, "check box", name);
        return found && found->isChecked();
    });
}

bool DesktopTest::switchIsOff(const std::string& title, const std::string& name) const {
    return waitUntil([&] {
        const auto found = reader->find(title, "check box", name);
        return found && !found->isChecked();
    });
}

bool DesktopTest::isGrabbedSoon(KeyCombination combination) const {
    return waitUntil([&] { return isGrabbed(*connection, combination); });
}

bool DesktopTest::isReleasedSoon(KeyCombination combination) const {
    return waitUntil([&] { return !isGrabbed(*connection, combination); });
}

std::string DesktopTest::log() const {
    std::ifstream file{bus->home().path() / logFile};
    return {std::istreambuf_iterator<char>{file}, {}};
}

} // namespace pallistrom::e2e
