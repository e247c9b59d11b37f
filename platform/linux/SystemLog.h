// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// The system log. Unlike the C library's way to it nothing here waits, for a log that nobody reads
/// must not hold up a key.
namespace pallistrom::SystemLog {

/// Where the log takes its lines.
inline constexpr std::string_view usualSocket = "/dev/log";

/// Returns what stands before the text of a line: the program's name and the number of its process.
[[nodiscard]] std::string nameOfThisProcess();

/// Sends a line to the log that listens at the path `socket`. Returns whether there was room for
/// it; if not it is lost.
[[nodiscard]] bool send(std::string_view socket, std::string_view line);

} // namespace pallistrom::SystemLog
