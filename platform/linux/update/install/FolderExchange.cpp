// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/FolderExchange.h"

#include <fcntl.h>

#include <cerrno>
#include <cstdio>

namespace pallistrom::FolderExchange {

namespace {

namespace fs = std::filesystem;

int move(const fs::path& from, const fs::path& to, unsigned flags) {
    return renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), flags) == 0 ? 0 : errno;
}

int move(const fs::path& from, const fs::path& to) {
    return rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

} // namespace

int exchange(const fs::path& one, const fs::path& other, const fs::path& aside) {
    const int error = move(one, other, RENAME_EXCHANGE);
    // Some file systems of the network, and old kernels, cannot.
    return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP
               ? exchangeBySteps(one, other, aside)
               : error;
}

int exchangeBySteps(const fs::path& one, const fs::path& other, const fs::path& aside) {
    if (const int error = move(one, aside); error != 0) {
        return error;
    }
    if (const int error = move(other, one); error != 0) {
        static_cast<void>(move(aside, one));
        return error;
    }
    // From here on the new one is in place; the old one under another name is as good.
    static_cast<void>(move(aside, other));
    return 0;
}

} // namespace pallistrom::FolderExchange
