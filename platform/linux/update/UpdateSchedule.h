// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>

/// When the next check is due. Times are seconds since 1970.
namespace pallistrom::UpdateSchedule {

inline constexpr std::chrono::seconds usualInterval = std::chrono::hours(24);
inline constexpr std::chrono::seconds shortestInterval = std::chrono::hours(1);
/// What is overdue when the program starts waits until the desktop has started too.
inline constexpr std::chrono::seconds pauseAfterStart = std::chrono::minutes(1);

/// Reads an interval in seconds. One that is too short is the shortest; what is no number, the
/// usual one.
[[nodiscard]] std::chrono::seconds interval(std::string_view text);

/// Returns how long to wait until the next check, if there was one at `lastCheck`: not longer than
/// an interval, whatever the clock has been set to since.
[[nodiscard]] std::chrono::seconds
wait(std::optional<std::int64_t> lastCheck, std::int64_t now, std::chrono::seconds interval);

/// Returns what to keep as the time of the last check: if the clock was set back behind it, `now`,
/// or no check would come before the clock has caught up.
[[nodiscard]] std::optional<std::int64_t> believable(std::optional<std::int64_t> lastCheck,
                                                     std::int64_t now);

/// Returns what to keep as the time of the last check if one has failed `now`: the next comes after
/// the shortest interval, not after the usual one.
[[nodiscard]] std::int64_t afterFailure(std::int64_t now, std::chrono::seconds interval);

} // namespace pallistrom::UpdateSchedule
