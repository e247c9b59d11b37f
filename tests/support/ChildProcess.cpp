// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace pallistrom {

namespace {

[[noreturn]] void fail(const std::string& what) {
    throw std::system_error{errno, std::generic_category(), what};
}

/// What the child needs after the fork, where nothing may be allocated.
struct Prepared {
    std::vector<char*> arguments;
    std::vector<char*> environment;
    int channel = -1;
    int errors = -1;
    pid_t parent = -1;
};

std::vector<char*> pointersTo(std::vector<std::string>& strings) {
    std::vector<char*> pointers;
    pointers.reserve(strings.size() + 1);
    for (std::string& string : strings) {
        pointers.push_back(string.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

/// Returns the process that does `become`.
template<typename Become>
pid_t forkInto(const Become& become) {
    const pid_t process = ::fork();
    if (process == 0) {
        become();
    }
    if (process < 0) {
        fail("fork");
    }
    return process;
}

/// Returns whether this process will end with its parent.
bool tieTo(pid_t parent) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    // A parent that died before the line above sends no signal any more.
    return ::getppid() == parent;
}

[[noreturn]] void becomeProgram(const Prepared& prepared) {
    if (tieTo(prepared.parent) && ::dup2(prepared.channel, STDIN_FILENO) >= 0 &&
        ::dup2(prepared.channel, STDOUT_FILENO) >= 0 &&
        (prepared.errors < 0 || ::dup2(prepared.errors, STDERR_FILENO) >= 0)) {
        ::execvpe(prepared.arguments[0], prepared.arguments.data(), prepared.environment.data());
    }
    ::_exit(127);
}

[[noreturn]] void becomeBody(const std::function<int()>& body, pid_t parent) noexcept {
    const int status = tieTo(parent) ? body() : 127;
    std::fflush(nullptr);
    // Not exit(): what the parent has made is not ours to tear down.
    ::_exit(status);
}

} // namespace

ChildProcess::ChildProcess(const Command& command) {
    // A socket, not two pipes: writing to a program that has ended then raises no signal here.
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        fail("socketpair");
    }
    m_channel = FileDescriptor{ends[0]};
    const FileDescriptor childsEnd{ends[1]};
    FileDescriptor errors;
    if (!command.errorFile.empty()) {
        errors = FileDescriptor{
            ::open(command.errorFile.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600)};
    }

    std::vector<std::string> arguments = command.arguments;
    std::vector<std::string> environment;
    for (const auto& [name, value] : command.environment) {
        environment.push_back(std::string{name}.append("=").append(value));
    }
    const Prepared prepared{.arguments = pointersTo(arguments),
                            .environment = pointersTo(environment),
                            .channel = childsEnd.get(),
                            .errors = errors.get(),
                            .parent = ::getpid()};
    m_process = forkInto([&] { becomeProgram(prepared); });
}

ChildProcess::ChildProcess(const std::function<int()>& body) {
    // Else the child would write it a second time.
    std::fflush(nullptr);
    const pid_t parent = ::getpid();
    m_process = forkInto([&] { becomeBody(body, parent); });
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : m_process{std::exchange(other.m_process, -1)},
      m_channel{std::move(other.m_channel)},
      m_unread{std::move(other.m_unread)},
      m_exitStatus{other.m_exitStatus} {}

ChildProcess& ChildProcess::operator=(ChildProcess&& other) noexcept {
    std::swap(m_process, other.m_process);
    std::swap(m_channel, other.m_channel);
    std::swap(m_unread, other.m_unread);
    std::swap(m_exitStatus, other.m_exitStatus);
    return *this;
}

ChildProcess::~ChildProcess() {
    if (isRunning()) {
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
    }
}

void ChildProcess::writeLine(std::string_view line) const {
    const std::string text = std::string{line} + '\n';
    if (::send(m_channel.get(), text.data(), text.size(), MSG_NOSIGNAL) !=
        static_cast<ssize_t>(text.size())) {
        fail("cannot write to the program");
    }
}

std::optional<std::string> ChildProcess::readLine(Deadline deadline) {
    std::size_t end = m_unread.find('\n');
    while (end == std::string::npos) {
        pollfd readable{.fd = m_channel.get(), .events = POLLIN, .revents = 0};
        std::array<char, 4096> buffer{};
        if (::poll(&readable, 1, deadline.remainingMilliseconds()) <= 0) {
            return std::nullopt;
        }
        const ssize_t count = ::recv(m_channel.get(), buffer.data(), buffer.size(), 0);
        if (count <= 0) {
            return std::nullopt;
        }
        m_unread.append(buffer.data(), static_cast<std::size_t>(count));
        end = m_unread.find('\n');
    }
    std::string line = m_unread.substr(0, end);
    m_unread.erase(0, end + 1);
    return line;
}

bool ChildProcess::isRunning() {
    // The program has moved to another owner.
    if (m_process <= 0) {
        return false;
    }
    int status = 0;
    if (!m_exitStatus && ::waitpid(m_process, &status, WNOHANG) == m_process) {
        m_exitStatus = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    }
    return !m_exitStatus;
}

void ChildProcess::signal(int number) {
    if (isRunning()) {
        ::kill(m_process, number);
    }
}

std::optional<int> ChildProcess::wait(Deadline deadline) {
    static_cast<void>(waitUntil([this] { return !isRunning(); }, deadline));
    return m_exitStatus;
}

void run(const Command& command) {
    const std::optional<int> status = ChildProcess{command}.wait();
    if (status != 0) {
        throw std::runtime_error{"\"" + command.arguments.front() + "\" did not succeed"};
    }
}

} // namespace pallistrom
