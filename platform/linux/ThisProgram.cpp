// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/ThisProgram.h"

#include "platform/linux/SessionPaths.h"

#include <algorithm>
#include <system_error>

namespace pallistrom::ThisProgram {

namespace {

namespace fs = std::filesystem;

bool liesIn(const fs::path& folder, const fs::path& file) {
    const auto [end, rest] = std::mismatch(folder.begin(), folder.end(), file.begin(), file.end());
    // The last part of a path that ends in a slash is empty.
    return (end == folder.end() || end->empty()) && rest != file.end();
}

} // namespace

const fs::path& file() {
    static const fs::path path = [] {
        std::error_code ignored;
        return fs::read_symlink("/proc/self/exe", ignored);
    }();
    return path;
}

fs::path pathToStart() {
    return pathToStart(
        file(), SessionPaths::variable("APPIMAGE"), SessionPaths::variable("APPDIR"));
}

fs::path pathToStart(const fs::path& file, const fs::path& appImage, const fs::path& appFolder) {
    return appImage.is_absolute() && appFolder.is_absolute() && liesIn(appFolder, file) ? appImage
                                                                                        : file;
}

} // namespace pallistrom::ThisProgram
