// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LoginItem.h"
#include "platform/linux/loginitem/AutostartEntry.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What autostart entries mean for us, and what we write into ours: text in, answer out.
///
/// The user's entry hides the system's. Our entry alone keeps that the user asked us to start at
/// login, so that "switched off in the desktop's settings" can be told from "never asked for".
namespace pallistrom::LoginItemRules {

/// What the name of a program in an entry leads to.
enum class Program : std::uint8_t { Missing, Other, Ours };

/// The session that starts programs at login.
struct Session {
    std::vector<std::string> desktops; ///< as $XDG_CURRENT_DESKTOP lists them
    std::string program;               ///< by which path we are to be started
    std::function<Program(const std::string& name)> find;
};

/// Returns what becomes of us at the next login, by the text of the entry that counts, if there is
/// one.
[[nodiscard]] SMAppServiceStatus status(const std::optional<std::string>& text,
                                        const Session& session);

/// Returns the user's entry that makes us start. What else the present one says stays in it; one
/// that is not well formed is replaced.
[[nodiscard]] std::string textToEnable(const std::optional<std::string>& userText,
                                       const Session& session);

/// Returns the user's entry that makes us start no more, or nothing where no entry is needed for
/// that. One of the two texts is there.
[[nodiscard]] std::optional<std::string> textToDisable(const std::optional<std::string>& userText,
                                                       const std::optional<std::string>& systemText,
                                                       const Session& session);

} // namespace pallistrom::LoginItemRules
