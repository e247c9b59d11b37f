// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/UpdateFolder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;

// Between them stands the name of the program's folder.
constexpr std::string_view beginning = ".";
constexpr std::string_view middle = ".pallistrom-update-";
constexpr std::string_view placeholder = "XXXXXX";

std::string prefixFor(const fs::path& topFolder) {
    return std::string(beginning) + topFolder.filename().string() + std::string(middle);
}

bool isOurs(const fs::path& folder) {
    struct stat status {};

    return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == geteuid();
}

// The program's own folder, if `topFolder` is one that was laid aside from there.
fs::path placeOf(const fs::path& topFolder) {
    const fs::path holder = topFolder.parent_path();
    const std::string name = holder.filename().string();
    const std::size_t end = name.rfind(middle);
    if (topFolder.filename() != "aside" || !name.starts_with(beginning) ||
        end == std::string::npos || name.size() != end + middle.size() + placeholder.size()) {
        return {};
    }
    return holder.parent_path() / name.substr(beginning.size(), end - beginning.size());
}

} // namespace

std::optional<UpdateFolder> UpdateFolder::make(const fs::path& topFolder) {
    std::string path =
        (topFolder.parent_path() / (prefixFor(topFolder) + std::string(placeholder))).string();
    if (mkdtemp(path.data()) == nullptr) {
        return std::nullopt;
    }
    UpdateFolder folder{fs::path(path)};

    struct stat status {};

    // The new version's folder is as open to others as the one that it will replace.
    if (stat(topFolder.c_str(), &status) != 0 || mkdir(folder.content().c_str(), S_IRWXU) != 0 ||
        chmod(folder.content().c_str(), status.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO)) != 0) {
        const int error = errno;
        static_cast<void>(rmdir(folder.content().c_str()));
        static_cast<void>(rmdir(path.c_str()));
        errno = error;
        return std::nullopt;
    }
    return folder;
}

std::vector<fs::path> UpdateFolder::leftBeside(fs::path& topFolder) {
    const fs::path place = placeOf(topFolder);
    std::error_code error;
    if (!place.empty() && !fs::exists(fs::symlink_status(place, error)) &&
        rename(topFolder.c_str(), place.c_str()) == 0) {
        topFolder = place;
    }
    std::vector<fs::path> left;
    const std::string prefix = prefixFor(topFolder);
    for (auto entry = fs::directory_iterator(topFolder.parent_path(), error);
         !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (name.starts_with(prefix) && name.size() == prefix.size() + placeholder.size() &&
            isOurs(entry->path())) {
            left.push_back(entry->path());
        }
    }
    return left;
}

} // namespace pallistrom
