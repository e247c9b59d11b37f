// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Latencies.h"

#include <algorithm>

namespace pallistrom {

Latencies::Time Latencies::percentile(std::size_t percent) const {
    if (m_times.empty()) {
        return {};
    }
    std::vector<Time> sorted = m_times;
    std::sort(sorted.begin(), sorted.end());
    return sorted.at(std::min(sorted.size() * percent / 100, sorted.size() - 1));
}

} // namespace pallistrom
