// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <span>
#include <string_view>

namespace pallistrom {

/// How this process came to be, read from its arguments and environment before Qt takes out of them
/// what it knows.
struct StartedBy {
    QByteArray activationToken; ///< what a launcher gave it to show windows with; may be empty
    bool isBusService = false;  ///< the session bus started it, to hand it a call

    /// Which our service file gives to what it starts. The name is GLib's; others took it over.
    static constexpr std::string_view serviceArgument = "--gapplication-service";

    /// Whether somebody asked for the program just now, and did not only log in.
    [[nodiscard]] bool isAskedFor() const { return isBusService || !activationToken.isEmpty(); }

    [[nodiscard]] static StartedBy read(std::span<const char* const> arguments);
};

} // namespace pallistrom
