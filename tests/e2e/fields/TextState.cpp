// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "TextState.h"

#include <charconv>
#include <ostream>

namespace pallistrom::e2e {

namespace {

std::string withoutEscapes(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool escape = text[i] == '\\' && i + 1 < text.size();
        if (escape) {
            ++i;
        }
        plain += escape && text[i] == 'n' ? '\n' : text[i];
    }
    return plain;
}

} // namespace

void PrintTo(const TextState& state, std::ostream* out) {
    std::string text = state.text;
    text.insert(static_cast<std::size_t>(state.cursor), "|");
    *out << '"' << text << '"';
}

std::string encoded(const TextState& state) {
    std::string line = std::to_string(state.cursor) + ' ';
    for (const char character : state.text) {
        if (character == '\n') {
            line += "\\n";
        } else if (character == '\\') {
            line += "\\\\";
        } else {
            line += character;
        }
    }
    return line;
}

std::optional<TextState> decoded(std::string_view line) {
    const std::size_t space = line.find(' ');
    if (space == std::string_view::npos) {
        return std::nullopt;
    }
    TextState state{.text = withoutEscapes(line.substr(space + 1))};
    const auto [end, error] = std::from_chars(line.data(), line.data() + space, state.cursor);
    const int length = static_cast<int>(state.text.size());
    if (error != std::errc{} || end != line.data() + space || state.cursor < -1 ||
        state.cursor > length) {
        return std::nullopt;
    }
    if (state.cursor == -1) {
        state.cursor = length;
    }
    return state;
}

} // namespace pallistrom::e2e
