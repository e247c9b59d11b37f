// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/FileStamps.h"

#include <algorithm>
#include <ctime>
#include <tuple>

namespace pallistrom {

namespace {

// All zero if nothing lies there.
struct stat statusOf(const std::filesystem::path& path) {
    struct stat status {};

    if (stat(path.c_str(), &status) != 0) {
        status = {};
    }
    return status;
}

bool isSame(const struct stat& a, const struct stat& b) {
    const auto identity = [](const struct stat& status) {
        return std::tuple(status.st_dev,
                          status.st_ino,
                          status.st_mode,
                          status.st_size,
                          status.st_mtim.tv_sec,
                          status.st_mtim.tv_nsec,
                          status.st_ctim.tv_sec,
                          status.st_ctim.tv_nsec);
    };
    return identity(a) == identity(b);
}

} // namespace

void FileStamps::add(const std::filesystem::path& path) {
    const bool isNoted = std::any_of(
        m_files.begin(), m_files.end(), [&](const File& file) { return file.path == path; });
    if (isNoted) {
        return;
    }
    m_files.push_back({path, statusOf(path)});
}

bool FileStamps::areUnchanged() const {
    return std::all_of(m_files.begin(), m_files.end(), [](const File& file) {
        return isSame(file.status, statusOf(file.path));
    });
}

bool FileStamps::areSettled() const {
    timespec tick{};
    clock_gettime(CLOCK_REALTIME_COARSE, &tick);
    return std::all_of(m_files.begin(), m_files.end(), [&tick](const File& file) {
        const timespec& changed = file.status.st_ctim;
        return std::tuple(changed.tv_sec, changed.tv_nsec) < std::tuple(tick.tv_sec, tick.tv_nsec);
    });
}

} // namespace pallistrom
