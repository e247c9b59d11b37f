// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "SessionBus.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom::e2e {

/// Something on show in a window, as assistive technology is told of it.
struct Accessible {
    std::string role; ///< as AT-SPI calls it
    std::string name;
    std::string description;
    std::string states; ///< of "checked" and "focusable" those that it has
    int x = 0;          ///< its middle, on the screen
    int y = 0;
    int left = 0; ///< its left end

    bool isChecked() const { return states.find("checked") != std::string::npos; }
};

/// Somebody on a session bus who hears what others see. Programs that start later tell of
/// themselves. Throws std::runtime_error if there is no accessibility bus.
class ScreenReader {
public:
    /// The program that looks.
    static std::string path();

    explicit ScreenReader(const SessionBus& bus);

    /// What is on show in the window with this title, in order; nothing if there is no such window.
    std::vector<Accessible> window(const std::string& title) const;

    /// The first thing in a window with this role and this name.
    std::optional<Accessible>
    find(const std::string& title, const std::string& role, const std::string& name) const;

    /// Does what that thing does when it is pressed, without any mouse. Returns whether it did.
    [[nodiscard]] bool
    press(const std::string& title, const std::string& role, const std::string& name) const;

private:
    std::map<std::string, std::string> m_environment;
};

} // namespace pallistrom::e2e
