// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "KeyGrab.h"
#include "Keys.h"
#include "Panel.h"
#include "PanelIcon.h"
#include "Screen.h"
#include "ScreenReader.h"
#include "SessionBus.h"
#include "SettingsFile.h"
#include "TrayMenu.h"
#include "VirtualDisplay.h"
#include "XConnection.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom::e2e {

/// Tests of the whole program in a session of its own: a display with a window manager, a session
/// bus, assistive technology and, if a test wants it, a panel.
class DesktopTest : public testing::Test {
protected:
    static constexpr const char* guide = "Welcome to Pallistrom";
    static constexpr const char* settingsTitle = "Pallistrom Settings";

    void SetUp() override { start({}); }

    /// Brings the session up, or skips the test.
    void start(const std::vector<std::string>& serverArguments);

    void startPanel() { panel.emplace(*bus); }

    /// Starts the program as its settings are: the first time, the guide opens.
    void launch();

    /// Starts it with the guide walked through, and waits until its menu is there.
    void launchPastTheGuide();

    /// Ends it as the end of a session does.
    void terminate();

    /// Asks it over the bus what its menu asks for.
    [[nodiscard]] bool activate(const std::string& action) const;

    /// Opens the settings, and waits until they are there for everybody.
    void openSettings() const;

    [[nodiscard]] bool windowIsShown(const std::string& title) const;
    [[nodiscard]] bool windowIsGone(const std::string& title) const;

    /// Waits for a thing in a window; it has no name if it does not come.
    [[nodiscard]] Accessible
    thing(const std::string& title, const std::string& role, const std::string& name) const;

    void click(const Accessible& thing) const { screen->click(thing.x, thing.y, 1); }

    /// Wait until a switch in a window is on or off. Return whether that came to pass in time.
    [[nodiscard]] bool switchIsOn(const std::string& title, const std::string& name) const;
    [[nodiscard]] bool switchIsOff(const std::string& title, const std::string& name) const;

    /// The same for a grab of the program.
    [[nodiscard]] bool isGrabbedSoon(KeyCombination combination) const;
    [[nodiscard]] bool isReleasedSoon(KeyCombination combination) const;

    SettingsFile settings() const { return SettingsFile{bus->home().configFolder()}; }

    /// What the program has written to standard error since it was started last.
    std::string log() const;

    /// The environment and the file of the program; tests may change them before it starts.
    std::map<std::string, std::string> environment;
    std::string programFile;

    std::optional<VirtualDisplay> display;
    std::optional<SessionBus> bus;
    std::optional<ScreenReader> reader;
    std::optional<Screen> screen;
    std::optional<Keys> keys;
    std::optional<XConnection> connection;
    std::optional<TrayMenu> menu;
    std::optional<Panel> panel;
    std::optional<ChildProcess> program;
};

} // namespace pallistrom::e2e
