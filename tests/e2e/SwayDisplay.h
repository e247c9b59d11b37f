// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "Home.h"
#include "SessionBus.h"

#include <filesystem>
#include <map>
#include <string>

namespace pallistrom::e2e {

/// A Wayland display that nobody sees, with sway on it and no X server. Throws std::runtime_error
/// if it does not come up.
class SwayDisplay {
public:
    SwayDisplay();
    SwayDisplay(const SwayDisplay&) = delete;
    SwayDisplay& operator=(const SwayDisplay&) = delete;

    /// Waits until sway has gone.
    ~SwayDisplay();

    /// The environment of a program on the display and on a bus.
    std::map<std::string, std::string> environment(const SessionBus& bus) const;

    /// Where sway's sockets are.
    std::filesystem::path runtimeFolder() const { return m_home.path() / "runtime"; }

    /// Where programs find the display.
    const std::filesystem::path& socket() const { return m_socket; }

    /// How many colours there are in the square in the upper left corner.
    int coloursInTheCorner(int size) const;

private:
    ChildProcess startSway();

    Home m_home;
    ChildProcess m_sway;
    std::filesystem::path m_socket;
};

/// The bar that goes with it, at the top and with a tray that begins on the left.
class Waybar {
public:
    static constexpr int height = 30;

    Waybar(const SwayDisplay& display, const SessionBus& bus);

private:
    ChildProcess m_process;
};

} // namespace pallistrom::e2e
