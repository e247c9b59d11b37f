// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/Log.h"

#include <sys/stat.h>
#include <syslog.h>
#include <unistd.h>

#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace pallistrom {

namespace {

// systemd says in the environment which file it reads as the journal ("device:inode").
bool standardErrorIsTheJournal() {
    const char* const stream = std::getenv("JOURNAL_STREAM"); // NOLINT(concurrency-mt-unsafe)

    struct stat file {};

    std::uintmax_t device = 0;
    std::uintmax_t inode = 0;
    return stream != nullptr && fstat(STDERR_FILENO, &file) == 0 &&
           std::sscanf(stream, "%" SCNuMAX ":%" SCNuMAX, &device, &inode) ==
               2 && // NOLINT(cert-err34-c)
           device == file.st_dev &&
           inode == file.st_ino;
}

} // namespace

void NSLog(std::string_view line) {
    // Never twice in the journal: what goes to the error stream is there already if systemd reads
    // it.
    static const int options = standardErrorIsTheJournal() ? 0 : LOG_PERROR;
    openlog(nullptr, LOG_PID | options, LOG_USER);
    syslog(LOG_NOTICE, "%.*s", static_cast<int>(line.size()), line.data());
    closelog();
}

} // namespace pallistrom
