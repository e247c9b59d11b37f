// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Deadline.h"
#include "FileDescriptor.h"

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

/// A program to run: nothing of the caller's environment is inherited.
struct Command {
    std::vector<std::string> arguments; ///< the first is the program, looked up on the PATH
    std::map<std::string, std::string> environment;
    std::filesystem::path errorFile{}; ///< takes standard error; empty for the caller's own
};

/// A process that this one has started. It does not outlive its owner, nor the thread that started
/// it. Throws std::runtime_error where the system refuses.
class ChildProcess {
public:
    /// Runs a program, with a line to its standard input and output.
    explicit ChildProcess(const Command& command);

    /// Goes on as a copy of this process that does `body` and ends with the status that it returns.
    explicit ChildProcess(const std::function<int()>& body);

    ChildProcess(ChildProcess&& other) noexcept;
    ChildProcess& operator=(ChildProcess&& other) noexcept;
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    /// Writes to the standard input of a program.
    void writeLine(std::string_view line) const;

    /// The next line of a program, without its end. None once the output is closed or the deadline
    /// has passed.
    [[nodiscard]] std::optional<std::string> readLine(Deadline deadline = Deadline{});

    bool isRunning();

    /// By which the system knows the process.
    [[nodiscard]] pid_t id() const { return m_process; }

    /// Sends the process a signal, as signal(7) numbers them, if it still runs.
    void signal(int number);

    /// Waits for the end of the process. Returns its exit status, 128 + n if signal n ended it;
    /// none if it still runs at the deadline.
    std::optional<int> wait(Deadline deadline = Deadline{});

private:
    pid_t m_process = -1;
    FileDescriptor m_channel;
    std::string m_unread;
    std::optional<int> m_exitStatus;
};

/// Runs a command to its end. Throws std::runtime_error unless it succeeds.
void run(const Command& command);

} // namespace pallistrom
