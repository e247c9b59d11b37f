// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/ApplicationLists.h"

#include "pallistrom/ApplicationLists.h"
#include "platform/linux/Text.h"

#include <fnmatch.h>

namespace pallistrom {

bool ListedApplication::isNamed(std::string_view name) const {
    return fnmatch(pattern.c_str(), Text::lowerCase(name).c_str(), 0) == 0;
}

std::span<const ListedApplication> ApplicationLists::builtIn() {
    static const auto all = [] {
        auto applications = parse(keepTheirKeys, FrontApplication::KeepsItsKeys);
        const auto others = parse(editBySelection, FrontApplication::EditsBySelection);
        applications.insert(applications.end(), others.begin(), others.end());
        return applications;
    }();
    return all;
}

std::vector<ListedApplication> ApplicationLists::parse(std::string_view text,
                                                       FrontApplication kind) {
    constexpr std::string_view divider = "--";
    std::vector<ListedApplication> applications;
    Text::forEachLine(text, [&](std::string_view line) {
        const auto end = line.find(divider);
        const auto pattern = Text::trimmed(line.substr(0, end));
        if (pattern.empty() || pattern.front() == '#') {
            return;
        }
        const auto reason =
            end == std::string_view::npos ? std::string_view() : line.substr(end + divider.size());
        applications.push_back({.pattern = Text::lowerCase(pattern),
                                .reason = std::string(Text::trimmed(reason)),
                                .kind = kind});
    });
    return applications;
}

} // namespace pallistrom
