// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The value of the key Exec: a command, quoted and escaped. Rules: Desktop Entry Specification.
namespace pallistrom::ExecLine {

/// Returns the words of a command, without quotes; field codes ("%U") stand as they are. Nothing if
/// a quote is left open. Single quotes, which shells have and the rules do not, are understood as
/// most desktops do.
[[nodiscard]] std::optional<std::vector<std::string>> words(std::string_view value);

/// Returns the command that starts `program` without arguments.
[[nodiscard]] std::string starting(std::string_view program);

} // namespace pallistrom::ExecLine
