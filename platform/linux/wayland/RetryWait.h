// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>

namespace pallistrom {

/// How long to wait before something that was lost is tried again: longer each time, but from the
/// shortest on again after it has held for as long as the longest wait. That it comes up is no
/// sign yet: it may break each time a moment later.
class RetryWait {
public:
    static constexpr std::chrono::milliseconds shortest = std::chrono::seconds(1);
    static constexpr std::chrono::milliseconds longest = std::chrono::minutes(1);

    /// Returns the wait after something that was there for so long; for no time if it never came.
    [[nodiscard]] std::chrono::milliseconds after(std::chrono::milliseconds held) {
        if (held >= longest) {
            m_next = shortest;
        }
        const auto wait = m_next;
        m_next = std::min(2 * m_next, longest);
        return wait;
    }

private:
    std::chrono::milliseconds m_next = shortest;
};

} // namespace pallistrom
