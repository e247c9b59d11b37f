// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/Appcast.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace pallistrom {

/// Who wants to know of a newer version.
enum class UpdateCheck : std::uint8_t {
    Scheduled, ///< nobody has asked: what was skipped, or is not yet everybody's, does not count
    Asked,     ///< the user
};

/// What decides whether a version is for this computer and this user.
struct UpdateSituation {
    UpdateCheck check = UpdateCheck::Scheduled;
    std::string currentVersion{};
    std::string systemVersion{};      ///< of the kernel, the one version that all systems share
    std::string machine{};            ///< as uname(1) calls it: "x86_64"
    std::set<std::string> channels{}; ///< besides everybody's
    std::string skippedVersion{};     ///< empty if none is
    std::int64_t now = 0;             ///< seconds since 1970
    int rollOutGroup = 0;             ///< from 0, which comes first, to 6
    std::uint64_t longestArchive = 0; ///< in bytes
};

/// Which of a feed's versions to offer.
namespace UpdateChoice {

inline constexpr int rollOutGroups = 7;

/// Returns the archive of `item` for this system. None if there is none that could be checked.
[[nodiscard]] const AppcastItem::Archive* archiveFor(const AppcastItem& item,
                                                     const UpdateSituation& situation);

/// Whether `item` is only to be told of.
[[nodiscard]] bool isNews(const AppcastItem& item, const UpdateSituation& situation);

/// Whether `item` is not to be put off.
[[nodiscard]] bool isCritical(const AppcastItem& item, const UpdateSituation& situation);

/// Returns the newest of `items` that is newer than what runs, fits this computer and is not to be
/// kept back from this user; none if there is none.
[[nodiscard]] const AppcastItem* best(const std::vector<AppcastItem>& items,
                                      const UpdateSituation& situation);

/// Returns the newest version that `items` have for this system, fitting or not; empty if none. An
/// honest feed never has one that is older than it had before.
[[nodiscard]] std::string newestVersion(const std::vector<AppcastItem>& items,
                                        const UpdateSituation& situation);

} // namespace UpdateChoice

} // namespace pallistrom
