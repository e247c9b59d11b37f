// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/ThisProcess.h"

#include "platform/Log.h"

#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

namespace pallistrom::ThisProcess {

void keepToItself() {
    umask(S_IRWXG | S_IRWXO);
    const rlimit none{.rlim_cur = 0, .rlim_max = 0};
    if (prctl(PR_SET_DUMPABLE, 0, 0, 0, 0) != 0 || setrlimit(RLIMIT_CORE, &none) != 0) {
        NSLog("Pallistrom: the keyboard service cannot hide its memory");
    }
}

void lockMemory() {
    if (mlockall(MCL_CURRENT | MCL_FUTURE | MCL_ONFAULT) != 0) {
        NSLog("Pallistrom: the keyboard service cannot keep itself in memory; keys may wait");
    }
}

bool endWithSignals(sd_event* loop) {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    return sigprocmask(SIG_BLOCK, &signals, nullptr) == 0 &&
           sd_event_add_signal(loop, nullptr, SIGTERM, nullptr, nullptr) >= 0 &&
           sd_event_add_signal(loop, nullptr, SIGINT, nullptr, nullptr) >= 0;
}

} // namespace pallistrom::ThisProcess
