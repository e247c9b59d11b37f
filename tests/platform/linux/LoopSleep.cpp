// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "LoopSleep.h"

#include <QCoreApplication>

#include <dlfcn.h>
#include <poll.h>

#include <csignal>
#include <ctime>
#include <optional>

namespace {

thread_local bool isWatched = false;
thread_local std::optional<bool> wasWithoutEnd; ///< of the last sleep that was watched

using Poll = int (*)(pollfd*, nfds_t, const timespec*, const sigset_t*);

} // namespace

// In place of the C library's, for every library of the process.
extern "C" __attribute__((visibility("default"))) int
ppoll(pollfd* descriptors, nfds_t count, const timespec* timeout, const sigset_t* mask) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): as dlsym(3) has it.
    static const auto poll = reinterpret_cast<Poll>(dlsym(RTLD_NEXT, "ppoll"));
    if (!isWatched) {
        return poll(descriptors, count, timeout, mask);
    }
    const timespec noTime{};
    const int ready = poll(descriptors, count, &noTime, mask);
    if (ready == 0) {
        wasWithoutEnd = timeout == nullptr;
    }
    return ready;
}

namespace pallistrom::LoopSleep {

bool isWithoutEnd() {
    isWatched = true;
    wasWithoutEnd.reset();
    while (!wasWithoutEnd) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    isWatched = false;
    return *wasWithoutEnd;
}

} // namespace pallistrom::LoopSleep
