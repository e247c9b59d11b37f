// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <vector>

namespace pallistrom {

/// Processes that take all of the processor that they are given, until this object ends.
class BusyProcesses {
public:
    explicit BusyProcesses(int count);
    BusyProcesses(const BusyProcesses&) = delete;
    BusyProcesses& operator=(const BusyProcesses&) = delete;
    ~BusyProcesses();

private:
    std::vector<pid_t> m_processes;
};

} // namespace pallistrom
