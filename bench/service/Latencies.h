// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

namespace pallistrom {

/// How long a number of keys took.
class Latencies {
public:
    using Time = std::chrono::duration<double, std::micro>;

    void add(Time time) { m_times.push_back(time); }

    /// Returns the time within which `percent` of the keys were through.
    [[nodiscard]] Time percentile(std::size_t percent) const;

private:
    std::vector<Time> m_times;
};

} // namespace pallistrom
