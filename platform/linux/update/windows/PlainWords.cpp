// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/windows/PlainWords.h"

#include <cstddef>
#include <vector>

namespace pallistrom::PlainWords {

namespace {

constexpr std::size_t longestVersion = 32;
constexpr std::size_t longestWord = 30;
constexpr std::string_view ellipsis = "…";
constexpr std::string_view zeroWidthSpace = "\xE2\x80\x8B";

bool beginsCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
}

// Where each character begins, and the end.
std::vector<std::size_t> beginnings(std::string_view text) {
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (beginsCharacter(text[i])) {
            places.push_back(i);
        }
    }
    places.push_back(text.size());
    return places;
}

} // namespace

std::string shortened(std::string_view words) {
    const auto places = beginnings(words);
    const std::size_t length = places.size() - 1;
    if (length <= longestVersion) {
        return std::string(words);
    }
    constexpr std::size_t half = (longestVersion - 1) / 2;
    return std::string(words.substr(0, places[half])) + std::string(ellipsis) +
           std::string(words.substr(places[length - half]));
}

std::string breakable(std::string_view text) {
    std::string result;
    std::size_t unbroken = 0;
    for (const char c : text) {
        if (c == ' ' || c == '\n') {
            unbroken = 0;
        } else if (beginsCharacter(c) && ++unbroken > longestWord) {
            result += zeroWidthSpace;
            unbroken = 1;
        }
        result += c;
    }
    return result;
}

} // namespace pallistrom::PlainWords
