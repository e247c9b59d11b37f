// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"

#include <filesystem>
#include <map>
#include <string>

namespace pallistrom::e2e {

/// A small program with a status item, built from the same parts as Pallistrom, which says what it
/// is asked to do.
class TrayProgram {
public:
    static std::string path();

    explicit TrayProgram(const std::map<std::string, std::string>& environment,
                         const std::filesystem::path& errorFile = {});

    /// What it says next; "nothing" if that is not within a few seconds.
    std::string heard();

    /// Flips a flag of its state, and waits until its status item has been told.
    void flip(const std::string& flag);

    /// Waits until it has given its status item the same values so often again.
    void refresh(int times);

    void signal(int number) { m_process.signal(number); }

    /// Waits for its end; gives its exit status.
    std::optional<int> wait(Deadline deadline = Deadline{}) { return m_process.wait(deadline); }

private:
    void order(const std::string& order, const std::string& answer);

    ChildProcess m_process;
};

} // namespace pallistrom::e2e
