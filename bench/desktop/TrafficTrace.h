// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom::bench {

/// How often something was called, and how many bytes that moved.
struct Traffic {
    long calls = 0;
    long bytes = 0;
};

/// What a program says and hears over sockets, to the X server and the session bus above all, and
/// over anything else that it reads and writes. strace(1) listens.
class TrafficTrace {
public:
    /// `file` is where strace is to write.
    explicit TrafficTrace(std::filesystem::path file) : m_file(std::move(file)) {}

    /// The command that runs a program so; it becomes that program.
    [[nodiscard]] std::vector<std::string> tracer() const;

    /// Forgets what has been said so far. Throws std::runtime_error if that was nothing.
    void begin();

    /// What has been said since begin(), by calls that did anything.
    [[nodiscard]] Traffic onSockets() const;
    [[nodiscard]] Traffic onOthers() const;

private:
    enum class Medium { Socket, Other };

    [[nodiscard]] Traffic on(Medium medium) const;

    std::filesystem::path m_file;
    std::uintmax_t m_start = 0;
};

} // namespace pallistrom::bench
