// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/loginitem/AutostartEntry.h"

#include "platform/linux/Text.h"
#include "platform/linux/applications/DesktopEntryLines.h"
#include "platform/linux/applications/ExecLine.h"

#include <algorithm>

namespace pallistrom {

namespace {

bool contains(const std::vector<std::string>& list, const std::string& item) {
    return std::find(list.begin(), list.end(), item) != list.end();
}

} // namespace

AutostartEntry AutostartEntry::parse(std::string_view text) {
    AutostartEntry entry;
    std::map<std::string_view, std::string_view> values;
    DesktopEntryLines::forEachValue(
        text, DesktopEntryLines::mainGroup, [&](std::string_view key, std::string_view value) {
            values[key] = value;
        });
    const auto truth = [&](std::string_view key) {
        return Text::boolean(values[key]);
    };

    entry.isApplication = DesktopEntryLines::isWellFormed(text) && values["Type"] == "Application";
    entry.isSwitchedOff = truth(hiddenKey).value_or(false) || !truth(gnomeKey).value_or(true);
    entry.isWished = truth(wishKey).value_or(false);
    if (values.contains("OnlyShowIn")) {
        entry.onlyShowIn = DesktopEntryLines::list(values["OnlyShowIn"]);
    }
    entry.notShowIn = DesktopEntryLines::list(values["NotShowIn"]);
    entry.tryExec = DesktopEntryLines::unescaped(values["TryExec"]);
    entry.exec = ExecLine::words(values["Exec"]).value_or(std::vector<std::string>());
    return entry;
}

// The first desktop that either list names decides.
bool AutostartEntry::isFor(const std::vector<std::string>& desktops) const {
    for (const std::string& desktop : desktops) {
        if (onlyShowIn && contains(*onlyShowIn, desktop)) {
            return true;
        }
        if (contains(notShowIn, desktop)) {
            return false;
        }
    }
    return !onlyShowIn;
}

} // namespace pallistrom
