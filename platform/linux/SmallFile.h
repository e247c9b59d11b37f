// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

namespace pallistrom {

/// A file that is expected to be short, read whole. Reading never waits for another program:
/// opening what is no file, a pipe say, does no harm.
struct SmallFile {
    enum class State : std::uint8_t {
        Missing,
        Read,
        NoFile,     ///< something else lies there: a folder, a pipe, a device
        TooLong,    ///< and therefore not read
        Unreadable, ///< not ours to read, or the disk fails
    };

    State state = State::Missing;
    std::string text; ///< if it was read

    /// Reads what lies at `path`, unless it has more than `longest` bytes.
    [[nodiscard]] static SmallFile read(const std::filesystem::path& path, std::size_t longest);
};

} // namespace pallistrom
