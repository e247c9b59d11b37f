// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "BusyProcesses.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace pallistrom {

BusyProcesses::BusyProcesses(int count) {
    for (int number = 0; number < count; ++number) {
        const pid_t process = ::fork();
        if (process == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            volatile unsigned work = 0;
            for (;;) {
                work = work + 1;
            }
        }
        if (process > 0) {
            m_processes.push_back(process);
        }
    }
}

BusyProcesses::~BusyProcesses() {
    for (const pid_t process : m_processes) {
        ::kill(process, SIGKILL);
        ::waitpid(process, nullptr, 0);
    }
}

} // namespace pallistrom
