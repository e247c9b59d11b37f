// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/UpdateSchedule.h"

#include "platform/linux/Text.h"

#include <algorithm>

namespace pallistrom::UpdateSchedule {

using std::chrono::seconds;

seconds interval(std::string_view text) {
    // So much longer than anybody would wait that sums of it are still numbers.
    constexpr std::int64_t longest = std::int64_t{100} * 365 * 24 * 60 * 60;
    const auto value = Text::number<std::int64_t>(text);
    return value ? std::max(seconds(std::min(*value, longest)), shortestInterval) : usualInterval;
}

seconds wait(std::optional<std::int64_t> lastCheck, std::int64_t now, seconds interval) {
    if (!lastCheck) {
        return seconds(0);
    }
    const auto last = believable(lastCheck, now);
    // The last check may be so long ago that the difference is no number.
    if (*last < now - interval.count()) {
        return seconds(0);
    }
    return interval - seconds(now - *last);
}

std::optional<std::int64_t> believable(std::optional<std::int64_t> lastCheck, std::int64_t now) {
    return lastCheck && *lastCheck > now ? now : lastCheck;
}

std::int64_t afterFailure(std::int64_t now, seconds interval) {
    return now - (interval - std::min(interval, shortestInterval)).count();
}

} // namespace pallistrom::UpdateSchedule
