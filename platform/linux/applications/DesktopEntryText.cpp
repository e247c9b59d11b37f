// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/DesktopEntryText.h"

#include "platform/linux/applications/DesktopEntryLines.h"

#include <algorithm>

namespace pallistrom {

namespace {

bool hasTerminalCategory(std::string_view categories) {
    const auto list = DesktopEntryLines::list(categories);
    return std::find(list.begin(), list.end(), "TerminalEmulator") != list.end();
}

} // namespace

DesktopEntryText DesktopEntryText::parse(std::string_view text) {
    DesktopEntryText entry;
    DesktopEntryLines::forEachValue(
        text, DesktopEntryLines::mainGroup, [&](std::string_view key, std::string_view value) {
            if (key == "Name") {
                entry.name = DesktopEntryLines::unescaped(value);
            } else if (key == "StartupWMClass") {
                entry.startupWmClass = value;
            } else if (key == "Categories") {
                entry.isTerminal = hasTerminalCategory(value);
            }
        });
    return entry;
}

} // namespace pallistrom
