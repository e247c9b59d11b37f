// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/applications/WindowClass.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

/// Which applications keep their own keys: terminals, and the others of the built-in list.
class KeyOwners {
public:
    /// Knows the built-in list, and asks `entries` about terminals.
    explicit KeyOwners(DesktopEntries entries);

    /// Returns whether the shortcuts are to leave the application of `window` alone. The answer for
    /// a class is found once and remembered.
    [[nodiscard]] bool includes(const WindowClass& window);

    /// Returns the patterns of a list in the form of keep-their-keys.txt, in lower case.
    [[nodiscard]] static std::vector<std::string> parseList(std::string_view text);

private:
    [[nodiscard]] bool find(const WindowClass& window) const;

    DesktopEntries m_entries;
    std::vector<std::string> m_patterns;
    std::map<std::pair<std::string, std::string>, bool> m_known;
};

} // namespace pallistrom
