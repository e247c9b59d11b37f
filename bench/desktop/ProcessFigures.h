// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <map>
#include <string>

/// What the kernel counts for a process. Throws std::runtime_error if it does not say.
namespace pallistrom::bench {

struct Memory {
    double pss = 0; ///< MiB, pages that are shared counting in part
    double rss = 0; ///< MiB
};

[[nodiscard]] Memory memoryOf(pid_t process);

/// How often each thread of a process has gone to sleep, and so has woken up, until now.
using WakeUps = std::map<std::string, long>;
[[nodiscard]] WakeUps wakeUpsOf(pid_t process);

/// How often the threads have woken up between two counts.
[[nodiscard]] long wakeUpsBetween(const WakeUps& before, const WakeUps& after);

/// Waits until a process has slept for half a second.
void waitUntilQuiet(pid_t process);

} // namespace pallistrom::bench
