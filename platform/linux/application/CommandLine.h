// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <string>

/// What the program is asked for by arguments instead of being started.
namespace pallistrom::CommandLine {

/// Asks for the program's version. Answering takes all of its libraries, but no display.
inline constexpr const char* version = "--version";

/// Returns the answer to `arguments`, the first of which names the program; nothing if it is to
/// start.
[[nodiscard]] std::optional<std::string> answer(std::span<const char* const> arguments);

} // namespace pallistrom::CommandLine
