// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/PackedFiles.h"

#include "pallistrom/Names.h"
#include "platform/linux/SmallFile.h"

#include <set>
#include <sstream>
#include <string>
#include <system_error>

namespace pallistrom::PackedFiles {

namespace fs = std::filesystem;

// Many times what it is.
constexpr std::size_t longestList = std::size_t{256} * 1024;

fs::path listIn(const fs::path& topFolder) {
    return topFolder / "share" / Names::dataFolder / "relocatable";
}

bool areAllIn(const fs::path& topFolder) {
    std::istringstream list(SmallFile::read(listIn(topFolder), longestList).text);
    std::set<std::string> packed;
    for (std::string line; std::getline(list, line);) {
        packed.insert(line);
    }
    std::error_code error;
    auto entry = fs::recursive_directory_iterator(topFolder, error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        const bool isFolder = fs::is_directory(entry->symlink_status(error));
        if (!isFolder && !packed.contains(entry->path().lexically_relative(topFolder).string())) {
            return false;
        }
    }
    return !error;
}

} // namespace pallistrom::PackedFiles
