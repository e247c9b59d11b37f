// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

/// What the readers of small text files share.
namespace pallistrom::Text {

/// Returns `text` without spaces, tabs and carriage returns at its ends.
[[nodiscard]] constexpr std::string_view trimmed(std::string_view text) {
    constexpr std::string_view space = " \t\r";
    const auto first = text.find_first_not_of(space);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(space) - first + 1);
}

/// Calls `use` with each line of `text`, without its line feed.
template<typename Use>
void forEachLine(std::string_view text, const Use& use) {
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        use(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

/// Returns `text` with the letters A to Z as a to z.
[[nodiscard]] inline std::string lowerCase(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return result;
}

/// Returns the truth value that `text` spells, in letters of any case: true, yes, on or 1; false,
/// no, off or 0.
[[nodiscard]] inline std::optional<bool> boolean(std::string_view text) {
    const std::string word = lowerCase(text);
    if (word == "true" || word == "yes" || word == "on" || word == "1") {
        return true;
    }
    if (word == "false" || word == "no" || word == "off" || word == "0") {
        return false;
    }
    return std::nullopt;
}

/// Returns the decimal number that all of `text` is; nothing if it is something else, or too large.
template<typename Number>
[[nodiscard]] std::optional<Number> number(std::string_view text) {
    Number value{};
    const auto* const last = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), last, value);
    return error == std::errc() && stop == last ? std::optional(value) : std::nullopt;
}

} // namespace pallistrom::Text
