// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ProcessFigures.h"

#include "Deadline.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>

namespace pallistrom::bench {

namespace {

std::filesystem::path folderOf(pid_t process) {
    return std::filesystem::path("/proc") / std::to_string(process);
}

/// The number behind `name` in a file of lines such as "Pss:  1234 kB".
std::optional<long> valueIn(const std::filesystem::path& path, const std::string& name) {
    std::ifstream file(path);
    for (std::string word; file >> word;) {
        if (long value = 0; word == name && file >> value) {
            return value;
        }
    }
    return std::nullopt;
}

double mebibytes(const std::filesystem::path& file, const std::string& name) {
    const auto kibibytes = valueIn(file, name);
    if (!kibibytes) {
        throw std::runtime_error(file.string() + " does not say " + name);
    }
    return static_cast<double>(*kibibytes) / 1024;
}

} // namespace

Memory memoryOf(pid_t process) {
    const auto file = folderOf(process) / "smaps_rollup";
    return {.pss = mebibytes(file, "Pss:"), .rss = mebibytes(file, "Rss:")};
}

WakeUps wakeUpsOf(pid_t process) {
    WakeUps threads;
    for (const auto& thread : std::filesystem::directory_iterator(folderOf(process) / "task")) {
        // A thread may end before it is looked at.
        const auto count = valueIn(thread.path() / "status", "voluntary_ctxt_switches:");
        if (count) {
            threads.emplace(thread.path().filename(), *count);
        }
    }
    return threads;
}

long wakeUpsBetween(const WakeUps& before, const WakeUps& after) {
    long sum = 0;
    for (const auto& [thread, count] : after) {
        const auto known = before.find(thread);
        sum += known != before.end() ? count - known->second : count;
    }
    // A thread that has ended takes its count along, but has woken up for that.
    return sum + std::count_if(before.begin(), before.end(), [&](const auto& thread) {
               return !after.contains(thread.first);
           });
}

void waitUntilQuiet(pid_t process) {
    using Clock = std::chrono::steady_clock;
    WakeUps last;
    Clock::time_point since;
    const bool isQuiet = waitUntil(
        [&] {
            const WakeUps now = wakeUpsOf(process);
            if (now != last) {
                last = now;
                since = Clock::now();
            }
            return Clock::now() - since > std::chrono::milliseconds(500);
        },
        Deadline(std::chrono::seconds(20)));
    if (!isQuiet) {
        throw std::runtime_error("a program does not come to rest");
    }
}

} // namespace pallistrom::bench
