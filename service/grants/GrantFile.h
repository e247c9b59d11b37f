// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/grants/Grants.h"

#include <cstdint>
#include <filesystem>

namespace pallistrom {

/// Where grants outlive the service: a file that is replaced as a whole or stays as it was.
///
/// One that cannot be understood grants nothing. It is kept under another name for whoever wants to
/// know what happened.
class GrantFile {
public:
    /// What became of an attempt to load or to store.
    enum class Outcome : std::uint8_t {
        Done,
        Damaged, ///< and put aside
        Failed,  ///< errno says why
    };

    /// `folder` is there and belongs to the service.
    explicit GrantFile(const std::filesystem::path& folder);

    /// Reads the grants into `grants`. Without a file there are none.
    [[nodiscard]] Outcome load(Grants& grants) const;

    /// Writes the grants. Without any there is no file, so that the system can tell by it whether
    /// the service is needed.
    [[nodiscard]] Outcome store(const Grants& grants) const;

private:
    std::filesystem::path m_file;
    std::filesystem::path m_newFile;
    std::filesystem::path m_damagedFile;
};

} // namespace pallistrom
