// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <vector>

namespace pallistrom {

/// Files that an answer rests on, as they were when it was found. Tells with one system call per
/// file whether the answer still holds.
class FileStamps {
public:
    /// Notes what lies at `path` now, if anything, unless that has been noted before. To be called
    /// before it is read: what changes in between is then seen.
    void add(const std::filesystem::path& path);

    void clear() { m_files.clear(); }

    /// Returns whether all files are what they were, as far as can be seen.
    [[nodiscard]] bool areUnchanged() const;

    /// Returns whether any further change can be seen. The clock of a file system ticks some
    /// hundred times a second: a file that was changed during this tick can change again without
    /// looking any different.
    [[nodiscard]] bool areSettled() const;

private:
    struct File {
        std::filesystem::path path;
        struct stat status;
    };

    std::vector<File> m_files;
};

} // namespace pallistrom
