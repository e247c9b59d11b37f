// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/KeyOwners.h"

#include "pallistrom/KeepTheirKeys.h"
#include "platform/linux/Text.h"

#include <fnmatch.h>

#include <algorithm>
#include <utility>

namespace pallistrom {

namespace {

bool matches(const std::vector<std::string>& patterns, std::string_view name) {
    const std::string text = Text::lowerCase(name);
    return std::any_of(patterns.begin(), patterns.end(), [&](const std::string& pattern) {
        return fnmatch(pattern.c_str(), text.c_str(), 0) == 0;
    });
}

} // namespace

KeyOwners::KeyOwners(DesktopEntries entries)
    : m_entries(std::move(entries)), m_patterns(parseList(keepTheirKeys)) {}

bool KeyOwners::includes(const WindowClass& window) {
    const std::pair key(window.instance, window.name);
    const auto known = m_known.find(key);
    if (known != m_known.end()) {
        return known->second;
    }
    // Windows name themselves as they please; nobody may fill our memory with names.
    constexpr std::size_t most = 1000;
    if (m_known.size() >= most) {
        m_known.clear();
    }
    return m_known.emplace(key, find(window)).first->second;
}

bool KeyOwners::find(const WindowClass& window) const {
    const auto isOwner = [this](const std::string& name) {
        return !name.empty() && (matches(m_patterns, name) || m_entries.isTerminal(name));
    };
    return isOwner(window.name) || isOwner(window.instance);
}

std::vector<std::string> KeyOwners::parseList(std::string_view text) {
    std::vector<std::string> patterns;
    Text::forEachLine(text, [&](std::string_view line) {
        const auto pattern = Text::trimmed(line.substr(0, line.find("--")));
        if (!pattern.empty() && pattern.front() != '#') {
            patterns.push_back(Text::lowerCase(pattern));
        }
    });
    return patterns;
}

} // namespace pallistrom
