// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/system/OsRelease.h"

#include "platform/linux/SmallFile.h"
#include "platform/linux/Text.h"

#include <charconv>
#include <optional>
#include <sstream>
#include <system_error>

namespace pallistrom {

namespace {

// A value as a shell reads it. Nothing if a quote is left open.
std::optional<std::string> withoutQuotes(std::string_view value) {
    std::string result;
    char quote = 0;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const char c = value[i];
        if (quote == 0 && (c == '"' || c == '\'')) {
            quote = c;
        } else if (quote != 0 && c == quote) {
            quote = 0;
        } else if (c == '\\' && quote != '\'' && i + 1 < value.size()) {
            result += value[++i];
        } else {
            result += c;
        }
    }
    return quote == 0 ? std::optional(result) : std::nullopt;
}

// Takes a number from the beginning of `text`, and a point after it.
std::int64_t takeNumber(std::string_view& text) {
    std::int64_t number = 0;
    const auto* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || number < 0) {
        text = {};
        return 0;
    }
    const bool goesOn = rest != end && *rest == '.';
    text =
        goesOn ? text.substr(static_cast<std::size_t>(rest - text.data()) + 1) : std::string_view();
    return number;
}

} // namespace

OsRelease OsRelease::parse(std::string_view text) {
    OsRelease release;
    std::string id;
    std::string related;
    Text::forEachLine(text, [&](std::string_view rawLine) {
        const auto line = Text::trimmed(rawLine);
        const auto equals = line.find('=');
        if (equals == std::string_view::npos || line.front() == '#') {
            return;
        }
        const auto key = line.substr(0, equals);
        const auto value = withoutQuotes(line.substr(equals + 1));
        if (key == "NAME" && value && !value->empty()) {
            release.name = *value;
        } else if (key == "VERSION_ID" && value) {
            release.versionId = *value;
        } else if (key == "ID" && value) {
            id = *value;
        } else if (key == "ID_LIKE" && value) {
            related = *value;
        }
    });
    // In any order in the file; the words are divided by spaces.
    std::istringstream words(id + ' ' + related);
    for (std::string word; words >> word;) {
        release.families.push_back(word);
    }
    return release;
}

OsRelease OsRelease::read(const std::vector<std::filesystem::path>& files) {
    constexpr std::size_t longest = 65536;
    for (const auto& path : files) {
        if (const auto file = SmallFile::read(path, longest);
            file.state == SmallFile::State::Read) {
            return parse(file.text);
        }
    }
    return {};
}

const OsRelease& OsRelease::ofSystem() {
    static const OsRelease release = read({"/etc/os-release", "/usr/lib/os-release"});
    return release;
}

NSOperatingSystemVersion OsRelease::versionNumbers() const {
    std::string_view rest = versionId;
    NSOperatingSystemVersion version;
    version.majorVersion = takeNumber(rest);
    version.minorVersion = takeNumber(rest);
    version.patchVersion = takeNumber(rest);
    return version;
}

} // namespace pallistrom
