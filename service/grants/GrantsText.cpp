// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/grants/GrantsText.h"

#include "platform/linux/Text.h"

namespace pallistrom::GrantsText {

namespace {

constexpr std::string_view header = "pallistrom-grants 1\n";
constexpr std::string_view given = "given";
constexpr std::string_view suspended = "suspended";

/// The system's way to say "nobody at all".
constexpr auto noUser = static_cast<uid_t>(-1);

constexpr std::string_view wordFor(Grant grant) {
    switch (grant) {
    case Grant::Given:
        return given;
    case Grant::Suspended:
        return suspended;
    }
    return {};
}

std::optional<Grant> grantNamed(std::string_view word) {
    if (word == given) {
        return Grant::Given;
    }
    if (word == suspended) {
        return Grant::Suspended;
    }
    return std::nullopt;
}

std::optional<uid_t> userIn(std::string_view word) {
    const auto user = Text::number<uid_t>(word);
    return user == noUser ? std::nullopt : user;
}

// Returns whether the line says anything, and something new.
bool read(std::string_view line, Grants& grants) {
    const auto space = line.find(' ');
    if (space == std::string_view::npos) {
        return false;
    }
    const auto user = userIn(line.substr(0, space));
    const auto grant = grantNamed(line.substr(space + 1));
    return user && grant && grants.emplace(*user, *grant).second;
}

} // namespace

std::optional<Grants> parse(std::string_view text) {
    if (text.size() > longest || text.substr(0, header.size()) != header) {
        return std::nullopt;
    }
    Grants grants;
    for (std::string_view rest = text.substr(header.size()); !rest.empty();) {
        const auto end = rest.find('\n');
        // A last line without its end was cut off, and its number may have been.
        if (end == std::string_view::npos || !read(rest.substr(0, end), grants)) {
            return std::nullopt;
        }
        rest.remove_prefix(end + 1);
    }
    // Leading zeros, or lines in disorder: somebody else's writing.
    return make(grants) == text ? std::optional{grants} : std::nullopt;
}

std::string make(const Grants& grants) {
    std::string text{header};
    for (const auto& [user, grant] : grants) {
        text.append(std::to_string(user)).append(" ").append(wordFor(grant)).append("\n");
    }
    return text;
}

} // namespace pallistrom::GrantsText
