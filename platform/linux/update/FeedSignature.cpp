// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/FeedSignature.h"

#include "platform/linux/Text.h"

#include <algorithm>
#include <cstdint>
#include <span>

namespace pallistrom::FeedSignature {

namespace {

constexpr std::string_view whiteSpace = " \t\r\n";
constexpr std::string_view begin = "<!-- sparkle-signatures:";
constexpr std::string_view end = "-->";

struct Fields {
    std::optional<std::string_view> signature;
    std::optional<std::string_view> length;
};

// Reads the lines of the comment. Nothing where one says what another has said, or says nothing.
std::optional<Fields> fieldsIn(std::string_view comment) {
    Fields fields;
    bool isGood = true;
    Text::forEachLine(comment, [&](std::string_view rawLine) {
        const auto line = Text::trimmed(rawLine);
        const auto colon = line.find(':');
        if (line.empty()) {
            return;
        }
        const auto name = line.substr(0, colon);
        auto* const field = name == "edSignature" ? &fields.signature
                            : name == "length"    ? &fields.length
                                                  : nullptr;
        if (colon == std::string_view::npos || (field != nullptr && *field)) {
            isGood = false;
        } else if (field != nullptr) {
            *field = Text::trimmed(line.substr(colon + 1));
        }
    });
    return isGood && fields.signature && fields.length ? std::optional(fields) : std::nullopt;
}

std::span<const unsigned char> bytesOf(std::string_view text) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes are bytes
    return {reinterpret_cast<const unsigned char*>(text.data()), text.size()};
}

} // namespace

std::optional<std::string_view> signedPart(std::string_view feed, const Ed25519Key& key) {
    const auto start = feed.rfind(begin);
    if (start == std::string_view::npos) {
        return std::nullopt;
    }
    auto comment = feed.substr(start + begin.size());
    comment = comment.substr(0, comment.find_last_not_of(whiteSpace) + 1);
    if (!comment.ends_with(end) || comment.find(end) + end.size() != comment.size()) {
        return std::nullopt;
    }
    comment.remove_suffix(end.size());
    const auto fields = fieldsIn(comment);
    const auto length = fields ? Text::number<std::size_t>(*fields->length) : std::nullopt;
    const auto signature = fields ? Ed25519Signature::fromBase64(*fields->signature) : std::nullopt;
    if (!length || !signature || *length > start ||
        feed.substr(*length, start - *length).find_first_not_of(whiteSpace) !=
            std::string_view::npos) {
        return std::nullopt;
    }
    const auto part = feed.substr(0, *length);
    return key.hasSigned(bytesOf(part), *signature) ? std::optional(part) : std::nullopt;
}

} // namespace pallistrom::FeedSignature
