// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

/// What an autostart entry says of whether its program starts at login. Nothing here reads a file.
struct AutostartEntry {
    bool isApplication = false; ///< whether it is well formed and starts a program at all
    bool isSwitchedOff = false; ///< by the desktop's own settings, or by hand
    bool isWished = false;      ///< whether we were asked for it
    /// The desktops that are to start it; all if there is no such list.
    std::optional<std::vector<std::string>> onlyShowIn;
    std::vector<std::string> notShowIn; ///< the desktops that are not to start it
    std::string tryExec;                ///< the program without which it is ignored, if it says one
    std::vector<std::string> exec;      ///< what is started, word by word

    /// The keys that switch an entry on and off. The desktops use one or the other.
    static constexpr std::string_view hiddenKey = "Hidden";
    static constexpr std::string_view gnomeKey = "X-GNOME-Autostart-enabled";
    /// Our own key: that the user asked us for it.
    static constexpr std::string_view wishKey = "X-Pallistrom-LaunchAtLogin";

    [[nodiscard]] static AutostartEntry parse(std::string_view text);

    /// Returns whether a session of `desktops`, as $XDG_CURRENT_DESKTOP lists them, heeds it.
    [[nodiscard]] bool isFor(const std::vector<std::string>& desktops) const;
};

} // namespace pallistrom
