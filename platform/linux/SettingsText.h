// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <string_view>

/// The text of the settings file: a line "[General]", then a line "key=true" or "key=false" for
/// each setting. Blank lines and lines that begin with '#' or ';' are people's own. Characters of a
/// key other than ASCII letters, digits, '.', '-', '_' and '*' are written as %XX. Nothing here
/// reads or writes a file.
namespace pallistrom::SettingsText {

using Values = std::map<std::string, bool, std::less<>>;

struct Settings {
    Values values;
    /// Whether the text has a line that is none of the above. Every other line is read all the
    /// same.
    bool isDamaged = false;
};

/// Reads a text. Of two lines with the same key the later one counts. Besides true and false, a
/// value may be 1, yes or on and 0, no or off, in letters of any case.
[[nodiscard]] Settings parse(std::string_view text);

/// Returns `text` with each of `changes` in it. Lines that do not speak of a changed key stay as
/// they are. `text` is not damaged.
[[nodiscard]] std::string withChanges(std::string_view text, const Values& changes);

/// Returns a new text that holds `values`.
[[nodiscard]] std::string make(const Values& values);

} // namespace pallistrom::SettingsText
