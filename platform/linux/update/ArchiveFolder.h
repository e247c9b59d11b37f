// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace pallistrom {

/// The folder in which an archive lies until it is installed: the user's alone, empty at first, and
/// removed with all that is in it. There is one such folder, so what a crash has left is removed by
/// the next one.
class ArchiveFolder {
public:
    /// Its parent is made, too.
    explicit ArchiveFolder(std::filesystem::path path);
    ArchiveFolder(const ArchiveFolder&) = delete;
    ArchiveFolder& operator=(const ArchiveFolder&) = delete;
    ~ArchiveFolder();

    /// Whether it could be made.
    [[nodiscard]] bool isThere() const { return m_isThere; }

    /// Where the archive is to lie.
    [[nodiscard]] std::filesystem::path archive() const { return m_path / "archive"; }

private:
    std::filesystem::path m_path;
    bool m_isThere = false;
};

} // namespace pallistrom
