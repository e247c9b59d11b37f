// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/grants/GrantFile.h"

#include "platform/linux/OwnedDescriptor.h"
#include "service/grants/GrantsText.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

namespace pallistrom {

namespace {

OwnedDescriptor openFile(const std::filesystem::path& path, int flags) {
    return OwnedDescriptor{open(path.c_str(), flags | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600)};
}

bool writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = write(descriptor, text.data(), text.size());
        if (count < 0 && errno != EINTR) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(count < 0 ? 0 : count));
    }
    return true;
}

// Reads one byte more than a good file has, so that a longer one is seen to be damaged.
std::optional<std::string> readAll(int descriptor) {
    std::string text;
    std::array<char, 4096> buffer{};
    while (text.size() <= GrantsText::longest) {
        const ssize_t count = read(descriptor, buffer.data(), buffer.size());
        if (count == 0) {
            return text;
        }
        if (count < 0 && errno != EINTR) {
            return std::nullopt;
        }
        text.append(buffer.data(), static_cast<std::size_t>(count < 0 ? 0 : count));
    }
    return text;
}

// The name of a file is in its folder, and as lasting as that.
void keepFolder(const std::filesystem::path& folder) {
    const OwnedDescriptor opened = openFile(folder, O_RDONLY | O_DIRECTORY);
    if (opened.isOpen()) {
        // Not every file system does this for folders.
        static_cast<void>(fsync(opened.get()));
    }
}

bool writeFile(const std::filesystem::path& path, std::string_view text) {
    OwnedDescriptor file = openFile(path, O_WRONLY | O_CREAT | O_TRUNC);
    return file.isOpen() && writeAll(file.get(), text) && fsync(file.get()) == 0 && file.closeNow();
}

// Takes no more room on the disk than the file has. If the machine stops in the middle of it the
// file is damaged, and so grants nothing.
bool overwriteFile(const std::filesystem::path& path, std::string_view text) {
    OwnedDescriptor file = openFile(path, O_WRONLY);
    return file.isOpen() && writeAll(file.get(), text) &&
           ftruncate(file.get(), static_cast<off_t>(text.size())) == 0 && fsync(file.get()) == 0 &&
           file.closeNow();
}

bool removeFile(const std::filesystem::path& path) {
    if (unlink(path.c_str()) != 0) {
        return errno == ENOENT;
    }
    keepFolder(path.parent_path());
    return true;
}

} // namespace

GrantFile::GrantFile(const std::filesystem::path& folder)
    : m_file{folder / "grants"},
      m_newFile{folder / "grants.new"},
      m_damagedFile{folder / "grants.damaged"} {}

GrantFile::Loaded GrantFile::load(Grants& grants) const {
    const OwnedDescriptor file = openFile(m_file, O_RDONLY);
    if (!file.isOpen() && errno == ENOENT) {
        return Loaded::Done;
    }
    const auto text = file.isOpen() ? readAll(file.get()) : std::nullopt;
    if (!text) {
        return Loaded::Failed;
    }
    if (const auto read = GrantsText::parse(*text)) {
        grants = *read;
        return Loaded::Done;
    }
    // If it cannot be put aside, the next grant replaces it.
    static_cast<void>(std::rename(m_file.c_str(), m_damagedFile.c_str()));
    return Loaded::Damaged;
}

GrantFile::Stored GrantFile::store(const Grants& grants) const {
    if (grants.empty()) {
        return removeFile(m_file) ? Stored::Done : Stored::Failed;
    }
    if (writeFile(m_newFile, GrantsText::make(grants)) &&
        std::rename(m_newFile.c_str(), m_file.c_str()) == 0) {
        keepFolder(m_file.parent_path());
        return Stored::Done;
    }
    const int why = errno;
    unlink(m_newFile.c_str());
    errno = why;
    return Stored::Failed;
}

GrantFile::Stored GrantFile::storeLess(const Grants& grants) const {
    if (store(grants) == Stored::Done) {
        return Stored::Done;
    }
    const int why = errno;
    if (overwriteFile(m_file, GrantsText::make(grants))) {
        return Stored::Done;
    }
    const bool isGone = removeFile(m_file);
    errno = why;
    return isGone ? Stored::Removed : Stored::Failed;
}

} // namespace pallistrom
