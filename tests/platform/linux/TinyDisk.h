// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace pallistrom {

/// A disk that holds a few pages. For child processes with mounts of their own: it goes with them.
class TinyDisk {
public:
    /// Puts the disk on `folder`. Returns whether that could be done.
    [[nodiscard]] bool mountOn(const std::filesystem::path& folder);

    /// Fills the disk up to the last page, or all but `pagesLeft` pages.
    void fill(int pagesLeft) const;

    void makeRoom() const;

private:
    [[nodiscard]] std::filesystem::path filler() const { return m_folder / "filler"; }

    std::filesystem::path m_folder;
};

} // namespace pallistrom
