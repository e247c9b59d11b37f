// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/applications/DesktopEntryText.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

/// The desktop entries of the applications that are installed.
/// Form and folders: Desktop Entry Specification, XDG Base Directory Specification.
class DesktopEntries {
public:
    /// Looks in `folders`, the first counting most.
    explicit DesktopEntries(std::vector<std::filesystem::path> folders);

    /// Returns the entries of this user's session, by $XDG_DATA_HOME and $XDG_DATA_DIRS.
    [[nodiscard]] static DesktopEntries ofSession();

    /// Returns whether the application whose windows have the class `windowClass` is a terminal:
    /// its entry is called so, or names it as the class of its windows, and has the category
    /// TerminalEmulator. Reads files.
    [[nodiscard]] bool isTerminal(std::string_view windowClass) const;

    /// Returns the name under which people know the application whose windows have the class
    /// `windowClass`, in the language of the entry itself; empty if it has no entry. Reads files.
    [[nodiscard]] std::string nameOf(std::string_view windowClass) const;

private:
    [[nodiscard]] std::optional<DesktopEntryText> entryOf(std::string_view windowClass) const;
    [[nodiscard]] std::optional<DesktopEntryText> entryNamed(std::string_view name) const;
    [[nodiscard]] std::optional<DesktopEntryText>
    entryWithWindowClass(std::string_view windowClass) const;

    std::vector<std::filesystem::path> m_folders;
};

} // namespace pallistrom
