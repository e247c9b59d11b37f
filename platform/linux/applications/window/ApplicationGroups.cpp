// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/window/ApplicationGroups.h"

#include "platform/linux/Text.h"

#include <set>
#include <string_view>

namespace pallistrom {

namespace {

std::string reasonOf(const ListedApplication& listed) {
    return listed.reason.substr(0, listed.reason.find(';'));
}

std::string reasonOf(const ApplicationKinds::Facts& facts) {
    if (facts.listed != nullptr) {
        return reasonOf(*facts.listed);
    }
    return facts.isTerminal ? "a terminal" : "";
}

ApplicationRow rowOf(ApplicationKinds& kinds, const WindowClass& window) {
    const std::string application(applicationName(window));
    const std::string title = kinds.entries().nameOf(application);
    return {.application = application,
            .title = title.empty() ? application : title,
            .reason = reasonOf(kinds.factsOf(window)),
            .isLeftAlone = kinds.isLeftAlone(window)};
}

std::vector<ApplicationRow> rowsOfBuiltIn(const ApplicationChoices& choices) {
    std::vector<ApplicationRow> rows;
    for (const ListedApplication& listed : ApplicationLists::builtIn()) {
        const bool isLeftAlone = listed.kind == FrontApplication::KeepsItsKeys;
        rows.push_back({.application = listed.pattern,
                        .title = listed.pattern,
                        .reason = reasonOf(listed),
                        .isLeftAlone = choices.isLeftAlone(listed.pattern).value_or(isLeftAlone)});
    }
    return rows;
}

} // namespace

std::vector<ApplicationGroup> applicationGroups(ApplicationKinds& kinds) {
    ApplicationGroup last{.title = "In front just now", .rows = {}};
    ApplicationGroup before{.title = "In front before", .rows = {}};
    ApplicationGroup chosen{.title = "Your other choices", .rows = {}};
    ApplicationGroup builtIn{.title = "Known from the start",
                             .rows = rowsOfBuiltIn(kinds.choices())};
    std::set<std::string> shown;
    for (const WindowClass& window : kinds.seen()) {
        auto& rows = last.rows.empty() ? last.rows : before.rows;
        rows.push_back(rowOf(kinds, window));
        shown.insert(Text::lowerCase(rows.back().application));
    }
    std::erase_if(builtIn.rows,
                  [&](const ApplicationRow& row) { return !shown.insert(row.application).second; });
    for (const auto& [application, isLeftAlone] : kinds.choices().all()) {
        if (!shown.contains(application)) {
            chosen.rows.push_back(rowOf(kinds, {.instance = {}, .name = application}));
        }
    }
    return {std::move(last), std::move(before), std::move(chosen), std::move(builtIn)};
}

} // namespace pallistrom
