// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessInfo.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

/// What the distribution says of itself. Form: os-release(5).
struct OsRelease {
    std::string name = "Linux"; ///< for people to read
    std::string versionId{};    ///< empty where there are no versions, only updates

    /// What it is and what it was made from, the closest first: "ubuntu", "debian".
    std::vector<std::string> families{};

    /// Reads a text. Lines that are none are skipped.
    [[nodiscard]] static OsRelease parse(std::string_view text);

    /// Reads the first of `files` that is there.
    [[nodiscard]] static OsRelease read(const std::vector<std::filesystem::path>& files);

    /// Returns what the running system says. Read once.
    [[nodiscard]] static const OsRelease& ofSystem();

    /// Returns the numbers with which the version begins: 24, 4 and 0 for "24.04".
    [[nodiscard]] NSOperatingSystemVersion versionNumbers() const;
};

} // namespace pallistrom
