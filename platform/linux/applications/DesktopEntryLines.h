// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The form of desktop entries, and of the settings files that look like them: "[Group]", below it
/// "Key=value", anywhere blank lines and comments. Rules: Desktop Entry Specification. Nothing here
/// knows what the keys mean or reads a file.
namespace pallistrom::DesktopEntryLines {

inline constexpr std::string_view mainGroup = "Desktop Entry";

/// Calls `use` with each key of `group` and its value as it is written. Of two with the same key
/// the later one counts. Lines that are none are skipped.
void forEachValue(std::string_view text,
                  std::string_view group,
                  const std::function<void(std::string_view key, std::string_view value)>& use);

/// Returns whether `text` is a desktop entry to every reader: strict ones refuse a file with a line
/// that is none, or without the main group at its beginning.
[[nodiscard]] bool isWellFormed(std::string_view text);

/// Values for keys, as they are written; nothing for a key that is to go.
using Changes = std::map<std::string, std::optional<std::string>, std::less<>>;

/// Returns the well-formed `text` with `changes` made in its main group. Lines that do not speak of
/// a changed key stay as they are.
[[nodiscard]] std::string withChanges(std::string_view text, const Changes& changes);

/// Returns a text as the value that stands for it, and the other way round.
[[nodiscard]] std::string escaped(std::string_view text);
[[nodiscard]] std::string unescaped(std::string_view value);

/// Returns the texts of a value that is a list, and the other way round.
[[nodiscard]] std::vector<std::string> list(std::string_view value);
[[nodiscard]] std::string listValue(const std::vector<std::string>& list);

} // namespace pallistrom::DesktopEntryLines
