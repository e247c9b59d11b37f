// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace pallistrom {

/// A program between keyboards, started here and ended with this object.
class MeasuredService {
public:
    /// Throws std::system_error.
    explicit MeasuredService(std::vector<std::string> command);
    MeasuredService(const MeasuredService&) = delete;
    MeasuredService& operator=(const MeasuredService&) = delete;
    ~MeasuredService();

    /// Returns how long the processor has worked for it.
    [[nodiscard]] std::chrono::nanoseconds processorTime() const;

    /// Returns how often it has gone to sleep and so, but for the last time, woken up.
    [[nodiscard]] std::uint64_t wakeUps() const;

    /// Returns how much of it is in memory.
    [[nodiscard]] double residentMebibytes() const;

private:
    pid_t m_process = -1;
};

} // namespace pallistrom
