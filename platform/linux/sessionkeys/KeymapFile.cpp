// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sessionkeys/KeymapFile.h"

#include "platform/linux/OwnedDescriptor.h"
#include "platform/linux/sessionkeys/Keymap.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>

namespace pallistrom::KeymapFile {

namespace {

// What is not a regular file could keep us waiting.
bool isFile(int descriptor) {
    struct stat status {};

    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace

std::string take(int descriptor, std::uint32_t size) {
    const OwnedDescriptor owned(descriptor);
    // The size counts a zero byte at the end.
    if (size > Keymap::mostBytes + 1 || !isFile(descriptor)) {
        return {};
    }
    std::string text(size, '\0');
    std::size_t done = 0;
    while (done < text.size()) {
        // At an offset: others read through the same open file.
        const ssize_t count =
            pread(descriptor, text.data() + done, text.size() - done, static_cast<off_t>(done));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return {};
        }
        done += static_cast<std::size_t>(count);
    }
    return text;
}

} // namespace pallistrom::KeymapFile
