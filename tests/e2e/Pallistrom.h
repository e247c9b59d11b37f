// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "Home.h"
#include "KeyGrab.h"
#include "SettingsFile.h"
#include "XConnection.h"

#include <map>
#include <string>
#include <vector>

namespace pallistrom::e2e {

/// The program under test on a display of the tests, with a home folder of its own, past its first
/// start and with no switch ever touched.
class Pallistrom {
public:
    /// The program that is tested: $PALLISTROM_PROGRAM, or the one that was built with the tests.
    static std::string path();

    explicit Pallistrom(const std::string& display);

    /// Turns switches, named by shortcut, as another process would.
    void setSwitches(const std::map<std::string, bool>& switches) const;

    void setSwitch(const std::string& shortcut, bool isOn) const {
        setSwitches({{shortcut, isOn}});
    }

    /// Switches on just the shortcuts with these names in the settings, and waits until that has
    /// taken effect. Returns the names of those with which it has not, in time.
    [[nodiscard]] std::vector<std::string> switchOnOnly(const std::vector<std::string>& ids) const;

    /// Wait until the program has a key, or until it has let go of it: only then a switch has taken
    /// effect. Return whether that came to pass in time.
    [[nodiscard]] bool waitUntilGrabbed(KeyCombination combination) const;
    [[nodiscard]] bool waitUntilReleased(KeyCombination combination) const;

    /// Sends the program a signal, as signal(7) numbers them.
    void signal(int number) { m_process.signal(number); }

    bool isRunning() { return m_process.isRunning(); }

    /// What the program has written to standard error.
    std::string log() const;

private:
    Home m_home;
    SettingsFile m_settings;
    XConnection m_connection;
    ChildProcess m_process;
};

} // namespace pallistrom::e2e
