// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/FolderWriter.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace pallistrom {

namespace {

constexpr mode_t folderMode = 0755;
constexpr mode_t fileMode = 0644;
constexpr mode_t programMode = 0755;
constexpr int openFolderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

} // namespace

FolderWriter::FolderWriter(const std::filesystem::path& folder)
    : m_folder(open(folder.c_str(), openFolderFlags)) {}

bool FolderWriter::begin(const TarEntry& entry) {
    const auto place = m_rules.placeOf(entry);
    if (!place) {
        return false;
    }
    const auto slash = place->rfind('/');
    const bool isDeep = slash != std::string::npos;
    if (entry.kind == TarEntry::Kind::Folder) {
        return openFolder(*place).isOpen() || failed();
    }
    const OwnedDescriptor parent =
        openFolder(std::string_view(*place).substr(0, isDeep ? slash : 0));
    const std::string name = isDeep ? place->substr(slash + 1) : *place;
    if (!parent.isOpen()) {
        return failed();
    }
    if (entry.kind == TarEntry::Kind::Link) {
        return symlinkat(entry.target.c_str(), parent.get(), name.c_str()) == 0 || failed();
    }
    m_file = OwnedDescriptor(openat(parent.get(),
                                    name.c_str(),
                                    O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                    entry.isExecutable ? programMode : fileMode));
    return m_file.isOpen() || failed();
}

bool FolderWriter::addBytes(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(m_file.get(), bytes.data(), bytes.size());
        if (count > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return failed();
        }
    }
    return true;
}

bool FolderWriter::end() {
    return m_file.closeNow() || failed();
}

// Opens a folder below ours, and makes it, and those on the way, if they are missing.
OwnedDescriptor FolderWriter::openFolder(std::string_view place) {
    OwnedDescriptor folder(fcntl(m_folder.get(), F_DUPFD_CLOEXEC, 0));
    while (folder.isOpen() && !place.empty()) {
        const std::size_t end = std::min(place.find('/'), place.size());
        const std::string name(place.substr(0, end));
        place.remove_prefix(std::min(end + 1, place.size()));
        if (mkdirat(folder.get(), name.c_str(), folderMode) != 0 && errno != EEXIST) {
            return {};
        }
        folder = OwnedDescriptor(openat(folder.get(), name.c_str(), openFolderFlags));
    }
    return folder;
}

bool FolderWriter::failed() {
    m_error = errno;
    return false;
}

} // namespace pallistrom
