// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/ThisProcess.h"

#include "platform/Log.h"

#include <malloc.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/stat.h>

#include <csignal>

namespace pallistrom::ThisProcess {

void keepToItself() {
    umask(S_IRWXG | S_IRWXO);
    if (prctl(PR_SET_DUMPABLE, 0, 0, 0, 0) != 0) {
        NSLog("Pallistrom: the keyboard service cannot hide its memory");
    }
}

void lockMemory() {
    // What a long message took is given back at once. By default the allocator learns from the
    // first one to keep so much for ever.
    constexpr int longest = 128 * 1024;
    // NOLINTBEGIN(concurrency-mt-unsafe): there is one thread
    mallopt(M_MMAP_THRESHOLD, longest);
    mallopt(M_TRIM_THRESHOLD, longest);
    // NOLINTEND(concurrency-mt-unsafe)
    if (mlockall(MCL_CURRENT | MCL_FUTURE | MCL_ONFAULT) != 0) {
        NSLog("Pallistrom: the keyboard service cannot keep itself in memory; keys may wait");
    }
}

bool endWithSignals(sd_event* loop) {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    return pthread_sigmask(SIG_BLOCK, &signals, nullptr) == 0 &&
           sd_event_add_signal(loop, nullptr, SIGTERM, nullptr, nullptr) >= 0 &&
           sd_event_add_signal(loop, nullptr, SIGINT, nullptr, nullptr) >= 0;
}

} // namespace pallistrom::ThisProcess
