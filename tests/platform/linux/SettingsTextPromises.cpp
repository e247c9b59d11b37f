// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "SettingsTextPromises.h"

#include <algorithm>
#include <vector>

namespace pallistrom::SettingsText {

namespace {

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

bool speaksOf(std::string_view line, const Values& changes) {
    const Values values = parse(line).values;
    return std::any_of(values.begin(), values.end(), [&](const auto& value) {
        return changes.contains(value.first);
    });
}

// Whether the lines of `text` that speak of no changed key are all that `result` has of such lines,
// in the same order; but for a header, which `result` may have before them.
bool keepsOtherLines(std::string_view text, std::string_view result, const Values& changes) {
    const auto others = [&](std::string_view from) {
        auto lines = linesOf(from);
        std::erase_if(lines, [&](std::string_view line) { return speaksOf(line, changes); });
        return lines;
    };
    const auto before = others(text);
    auto after = others(result);
    if (after.size() == before.size() + 1 && after.front() == "[General]") {
        after.erase(after.begin());
    }
    return after == before;
}

} // namespace

std::string brokenPromise(std::string_view text, const Values& changes) {
    const Settings before = parse(text);
    const std::string result = withChanges(text, changes);
    const Settings after = parse(result);

    Values expected = changes;
    expected.insert(before.values.begin(), before.values.end());
    if (after.values != expected) {
        return "the changed text has the changed values and all others";
    }
    if (after.isDamaged != before.isDamaged) {
        return "the changed text is damaged if the text is";
    }
    if (!keepsOtherLines(text, result, changes)) {
        return "other lines stay as they are";
    }
    if (withChanges(result, changes) != result) {
        return "the same changes a second time change nothing";
    }
    const Settings made = parse(make(expected));
    if (made.values != expected || made.isDamaged) {
        return "what is made of values can be read again";
    }
    return {};
}

} // namespace pallistrom::SettingsText
