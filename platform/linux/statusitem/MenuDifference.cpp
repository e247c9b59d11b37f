// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/statusitem/MenuDifference.h"

#include <algorithm>

namespace pallistrom {

namespace {

/// Whether both are the same item, if perhaps looking different. What has no action, a heading, is
/// known by its title.
bool isSameItem(const NSMenuItem& a, const NSMenuItem& b) {
    return a.isSeparator == b.isSeparator && a.isCheckable == b.isCheckable &&
           a.action == b.action && a.representedObject == b.representedObject &&
           (!a.action.empty() || a.title == b.title);
}

bool looksSame(const NSMenuItem& a, const NSMenuItem& b) {
    return a.title == b.title && a.keyEquivalent == b.keyEquivalent && a.state == b.state &&
           a.isEnabled == b.isEnabled;
}

} // namespace

std::vector<MenuStep> menuDifference(const NSMenu& shown, const NSMenu& wanted) {
    // What comes and goes in our menu does so in one place: all before it and all after it stays.
    const auto afterHead =
        std::mismatch(shown.begin(), shown.end(), wanted.begin(), wanted.end(), isSameItem);
    const auto head = static_cast<std::size_t>(afterHead.first - shown.begin());
    const auto afterTail = std::mismatch(shown.rbegin(),
                                         std::make_reverse_iterator(afterHead.first),
                                         wanted.rbegin(),
                                         std::make_reverse_iterator(afterHead.second),
                                         isSameItem);
    const auto tail = static_cast<std::size_t>(afterTail.first - shown.rbegin());

    std::vector<MenuStep> steps;
    for (std::size_t index = shown.size() - tail; index > head; --index) {
        steps.push_back({.kind = MenuStep::Kind::Remove, .index = index - 1, .item = {}});
    }
    for (std::size_t index = head; index < wanted.size() - tail; ++index) {
        steps.push_back({.kind = MenuStep::Kind::Insert, .index = index, .item = wanted[index]});
    }
    for (std::size_t index = 0; index < wanted.size(); ++index) {
        const bool isInTail = index >= wanted.size() - tail;
        if (index >= head && !isInTail) {
            continue;
        }
        const auto& old = isInTail ? shown[index + shown.size() - wanted.size()] : shown[index];
        if (!looksSame(old, wanted[index])) {
            steps.push_back(
                {.kind = MenuStep::Kind::Change, .index = index, .item = wanted[index]});
        }
    }
    return steps;
}

} // namespace pallistrom
