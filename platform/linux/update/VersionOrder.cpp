// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/VersionOrder.h"

#include <algorithm>
#include <cstdint>

namespace pallistrom::VersionOrder {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isLetter(char c) {
    // What is not ASCII is taken for letters: it is part of some word.
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 128;
}

// A number or a word.
struct Part {
    enum class Kind : std::uint8_t { Word, Number };

    // What follows the end of each version.
    Kind kind = Kind::Number;
    std::string_view text; // of a number without leading zeros, so empty if it is zero
};

std::string_view takeWhile(bool (*belongs)(char), std::string_view& rest) {
    const auto* const end = std::find_if_not(rest.begin(), rest.end(), belongs);
    const auto taken = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    rest.remove_prefix(taken.size());
    return taken;
}

Part takePart(std::string_view& rest) {
    takeWhile([](char c) { return !isDigit(c) && !isLetter(c); }, rest);
    if (!rest.empty() && isLetter(rest.front())) {
        return {.kind = Part::Kind::Word, .text = takeWhile(isLetter, rest)};
    }
    auto number = takeWhile(isDigit, rest);
    number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
    return {.kind = Part::Kind::Number, .text = number};
}

std::weak_ordering compareParts(const Part& left, const Part& right) {
    if (left.kind != right.kind) {
        return left.kind <=> right.kind;
    }
    // Of numbers the one with more digits is greater.
    if (left.kind == Part::Kind::Number && left.text.size() != right.text.size()) {
        return left.text.size() <=> right.text.size();
    }
    return left.text <=> right.text;
}

} // namespace

std::weak_ordering compare(std::string_view left, std::string_view right) {
    left = left.substr(0, left.find('-'));
    right = right.substr(0, right.find('-'));
    while (!left.empty() || !right.empty()) {
        const auto order = compareParts(takePart(left), takePart(right));
        if (std::is_neq(order)) {
            return order;
        }
    }
    return std::weak_ordering::equivalent;
}

bool isVersion(std::string_view text) {
    constexpr std::size_t longest = 64;
    return text.size() <= longest && std::any_of(text.begin(), text.end(), isDigit) &&
           std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c <= '~'; });
}

} // namespace pallistrom::VersionOrder
