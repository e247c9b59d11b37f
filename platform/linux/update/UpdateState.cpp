// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/UpdateState.h"

#include "platform/linux/Text.h"
#include "platform/linux/update/UpdateChoice.h"
#include "platform/linux/update/VersionOrder.h"

namespace pallistrom {

namespace {

constexpr std::string_view lastCheckName = "last-check";
constexpr std::string_view checksByItselfName = "checks-by-itself";
constexpr std::string_view skippedName = "skipped-version";
constexpr std::string_view newestName = "newest-version";
constexpr std::string_view groupName = "roll-out-group";

// Returns whether `value` is one of `name`.
bool take(UpdateState& state, std::string_view name, std::string_view value) {
    if (name == lastCheckName) {
        state.lastCheck = Text::number<std::int64_t>(value);
        return state.lastCheck && *state.lastCheck >= 0;
    }
    if (name == checksByItselfName) {
        state.checksByItself = Text::boolean(value);
        return state.checksByItself.has_value();
    }
    if (name == groupName) {
        state.rollOutGroup = Text::number<int>(value);
        return state.rollOutGroup && *state.rollOutGroup >= 0 &&
               *state.rollOutGroup < UpdateChoice::rollOutGroups;
    }
    if (name == skippedName || name == newestName) {
        (name == skippedName ? state.skippedVersion : state.newestVersion) = value;
        return VersionOrder::isVersion(value);
    }
    return true;
}

} // namespace

std::optional<UpdateState> UpdateState::parse(std::string_view text) {
    UpdateState state;
    bool isGood = true;
    Text::forEachLine(text, [&](std::string_view rawLine) {
        const auto line = Text::trimmed(rawLine);
        const auto equals = line.find('=');
        if (equals != std::string_view::npos) {
            isGood = take(state, line.substr(0, equals), line.substr(equals + 1)) && isGood;
        } else if (!line.empty() && line.front() != '#') {
            isGood = false;
        }
    });
    return isGood ? std::optional(state) : std::nullopt;
}

std::string UpdateState::text() const {
    std::string text = "# Kept by the program itself.\n";
    const auto add = [&](std::string_view name, const std::string& value) {
        text.append(name).append("=").append(value).append("\n");
    };
    if (lastCheck) {
        add(lastCheckName, std::to_string(*lastCheck));
    }
    if (checksByItself) {
        add(checksByItselfName, *checksByItself ? "true" : "false");
    }
    if (!skippedVersion.empty()) {
        add(skippedName, skippedVersion);
    }
    if (!newestVersion.empty()) {
        add(newestName, newestVersion);
    }
    if (rollOutGroup) {
        add(groupName, std::to_string(*rollOutGroup));
    }
    return text;
}

} // namespace pallistrom
