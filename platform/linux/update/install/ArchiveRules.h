// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/install/TarEntry.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>

namespace pallistrom {

/// What may be in an archive of the program: one folder, and in it no more than a program can need;
/// nothing that lies, or points, outside. Asked once about each entry, in order. Touches no file.
class ArchiveRules {
public:
    static constexpr std::uint64_t mostEntries = 20'000;
    static constexpr std::uint64_t mostBytes = std::uint64_t{1} << 30U;

    /// Returns where the entry belongs, from the one folder on: empty for that folder itself.
    /// Nothing if the archive is to be refused.
    [[nodiscard]] std::optional<std::string> placeOf(const TarEntry& entry);

private:
    [[nodiscard]] bool liesBelowLink(const std::string& place) const;

    std::string m_top;
    std::uint64_t m_entries = 0;
    std::uint64_t m_bytes = 0;
    std::set<std::string, std::less<>> m_places; ///< of all but folders, which may come twice
    std::set<std::string, std::less<>> m_links;
};

} // namespace pallistrom
