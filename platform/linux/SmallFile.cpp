// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/SmallFile.h"

#include "platform/linux/OwnedDescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace pallistrom {

namespace {

SmallFile::State whyNotOpen() {
    switch (errno) {
    case ENOENT:
    case ENOTDIR:
        return SmallFile::State::Missing;
    case ENXIO: // a socket
        return SmallFile::State::NoFile;
    default:
        return SmallFile::State::Unreadable;
    }
}

} // namespace

SmallFile SmallFile::read(const std::filesystem::path& path, std::size_t longest) {
    // Without O_NONBLOCK, opening a pipe would wait for somebody who writes into it.
    const OwnedDescriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen()) {
        return {.state = whyNotOpen(), .text = {}};
    }

    struct stat status {};

    if (fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return {.state = State::NoFile, .text = {}};
    }
    SmallFile result{.state = State::Read, .text = {}};
    std::array<char, 4096> buffer{};
    ssize_t count = 0;
    while ((count = ::read(file.get(), buffer.data(), buffer.size())) > 0) {
        result.text.append(buffer.data(), static_cast<std::size_t>(count));
        if (result.text.size() > longest) {
            return {.state = State::TooLong, .text = {}};
        }
    }
    return count == 0 ? result : SmallFile{.state = State::Unreadable, .text = {}};
}

} // namespace pallistrom
