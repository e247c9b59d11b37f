// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace pallistrom {

/// What an archive says of one thing in it.
struct TarEntry {
    enum class Kind : std::uint8_t { File, Folder, Link };

    Kind kind = Kind::File;
    std::string path{};   ///< as it is written, without a slash at its end
    std::string target{}; ///< of a link
    std::uint64_t size = 0;
    bool isExecutable = false;
};

} // namespace pallistrom
