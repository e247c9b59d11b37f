// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/grants/Grants.h"

#include <cstdint>
#include <filesystem>

namespace pallistrom {

/// Where grants outlive the service: a file that is replaced as a whole or, unless grants are taken
/// away, stays as it was.
///
/// One that cannot be understood grants nothing. It is kept under another name for whoever wants to
/// know what happened.
class GrantFile {
public:
    enum class Loaded : std::uint8_t {
        Done,
        Damaged, ///< and put aside
        Failed,  ///< errno says why
    };

    enum class Stored : std::uint8_t {
        Done,
        Removed, ///< no grant is in the file any more; errno says what stood against writing them
        Failed,  ///< errno says why
    };

    /// `folder` is there and belongs to the service.
    explicit GrantFile(const std::filesystem::path& folder);

    /// Reads the grants into `grants`. Without a file there are none.
    [[nodiscard]] Loaded load(Grants& grants) const;

    /// Writes the grants. Without any there is no file, so that the system can tell by it whether
    /// the service is needed.
    [[nodiscard]] Stored store(const Grants& grants) const;

    /// Writes the grants after some were taken away. These are not to come back, whatever the disk
    /// says: where there is no room for a new file the old one is overwritten, and where that fails
    /// it is removed, with all grants in it.
    [[nodiscard]] Stored storeLess(const Grants& grants) const;

private:
    std::filesystem::path m_file;
    std::filesystem::path m_newFile;
    std::filesystem::path m_damagedFile;
};

} // namespace pallistrom
