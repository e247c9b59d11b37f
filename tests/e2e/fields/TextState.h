// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace pallistrom::e2e {

/// What stands in a text field and where its cursor is, counted in characters from the start. For
/// plain ASCII only: the toolkits do not agree on what else is one character.
struct TextState {
    std::string text;
    int cursor = 0;

    friend bool operator==(const TextState&, const TextState&) = default;
};

/// Shows the cursor as a bar: "alpha |beta".
void PrintTo(const TextState& state, std::ostream* out);

/// The form in which a field and a test tell each other a state: "CURSOR TEXT", on one line, with
/// \n for a line break and \\ for a backslash.
std::string encoded(const TextState& state);

/// The state that `line` encodes, if it does. A cursor of -1 means the end of the text.
std::optional<TextState> decoded(std::string_view line);

} // namespace pallistrom::e2e
