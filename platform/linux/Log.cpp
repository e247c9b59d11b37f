// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/Log.h"

#include "platform/linux/SystemLog.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

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

// All in one piece, so that lines of several programs do not end up in one another.
void writeToErrorStream(std::string_view line) {
    const std::string text = SystemLog::nameOfThisProcess().append(line).append("\n");
    // There is nowhere left to say that this has failed.
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, text.data(), text.size());
}

} // namespace

void NSLog(std::string_view line) {
    // Never twice in the journal: what goes to the error stream is there already if systemd reads
    // it.
    static const bool isInTheJournal = standardErrorIsTheJournal();
    // A line for which there is no room is lost: nothing waits for a log.
    static_cast<void>(SystemLog::send(SystemLog::usualSocket, line));
    if (!isInTheJournal) {
        writeToErrorStream(line);
    }
}

} // namespace pallistrom
