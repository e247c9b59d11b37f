// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/SettingsText.h"

#include "platform/linux/Text.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace pallistrom::SettingsText {

namespace {

constexpr std::string_view header = "[General]";

bool standsForItself(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' ||
           c == '-' || c == '_' || c == '*';
}

std::string encodedKey(std::string_view key) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const char c : key) {
        if (standsForItself(c)) {
            text += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            text += {'%', digits[byte >> 4U], digits[byte & 0xFU]};
        }
    }
    return text;
}

std::optional<std::string> decodedKey(std::string_view text) {
    std::string key;
    while (!text.empty()) {
        unsigned char byte = 0;
        if (standsForItself(text.front())) {
            key += text.front();
            text.remove_prefix(1);
        } else if (const auto* const end = text.data() + std::min<std::size_t>(text.size(), 3);
                   text.front() == '%' && text.size() >= 3 &&
                   std::from_chars(text.data() + 1, end, byte, 16).ptr == end) {
            key += static_cast<char>(byte);
            text.remove_prefix(3);
        } else {
            return std::nullopt;
        }
    }
    return key;
}

bool isRemark(std::string_view line) {
    return line.empty() || line.front() == '#' || line.front() == ';' || line == header;
}

// What the line says, unless it is damaged.
std::optional<std::pair<std::string, bool>> parseSetting(std::string_view line) {
    const auto equals = line.find('=');
    if (equals == std::string_view::npos) {
        return std::nullopt;
    }
    auto key = decodedKey(Text::trimmed(line.substr(0, equals)));
    const auto value = Text::boolean(Text::trimmed(line.substr(equals + 1)));
    if (!key || !value) {
        return std::nullopt;
    }
    return std::pair{std::move(*key), *value};
}

void appendSetting(std::string& text, std::string_view key, bool value) {
    text.append(encodedKey(key)).append(value ? "=true\n" : "=false\n");
}

} // namespace

Settings parse(std::string_view text) {
    Settings settings;
    Text::forEachLine(text, [&](std::string_view rawLine) {
        const auto line = Text::trimmed(rawLine);
        if (isRemark(line)) {
            return;
        }
        if (auto setting = parseSetting(line)) {
            settings.values.insert_or_assign(std::move(setting->first), setting->second);
        } else {
            settings.isDamaged = true;
        }
    });
    return settings;
}

std::string withChanges(std::string_view text, const Values& changes) {
    std::string result;
    bool hasHeader = false;
    Values missing = changes;
    Text::forEachLine(text, [&](std::string_view rawLine) {
        const auto line = Text::trimmed(rawLine);
        hasHeader = hasHeader || line == header;
        const auto setting = isRemark(line) ? std::nullopt : parseSetting(line);
        const auto change = setting ? changes.find(setting->first) : changes.end();
        if (change == changes.end()) {
            result.append(rawLine).append("\n");
        } else if (missing.erase(change->first) > 0) {
            appendSetting(result, change->first, change->second);
        }
    });
    if (!hasHeader) {
        result.insert(0, std::string(header) + "\n");
    }
    for (const auto& [key, value] : missing) {
        appendSetting(result, key, value);
    }
    return result;
}

std::string make(const Values& values) {
    return withChanges({}, values);
}

} // namespace pallistrom::SettingsText
