// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "MeasuredService.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <fstream>
#include <system_error>

namespace pallistrom {

namespace {

std::ifstream processFile(pid_t process, const char* name) {
    return std::ifstream("/proc/" + std::to_string(process) + '/' + name);
}

} // namespace

MeasuredService::MeasuredService(std::vector<std::string> command) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (std::string& argument : command) {
        arguments.push_back(argument.data());
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions{};
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, STDERR_FILENO, STDOUT_FILENO);
    const int error =
        posix_spawnp(&m_process, arguments.front(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
        throw std::system_error(error, std::generic_category(), command.front());
    }
}

MeasuredService::~MeasuredService() {
    ::kill(m_process, SIGTERM);
    ::waitpid(m_process, nullptr, 0);
}

std::chrono::nanoseconds MeasuredService::processorTime() const {
    std::int64_t nanoseconds = 0;
    processFile(m_process, "schedstat") >> nanoseconds;
    return std::chrono::nanoseconds(nanoseconds);
}

std::uint64_t MeasuredService::wakeUps() const {
    auto status = processFile(m_process, "status");
    std::string word;
    std::uint64_t count = 0;
    while (status >> word && word != "voluntary_ctxt_switches:") {
    }
    status >> count;
    return count;
}

double MeasuredService::residentMebibytes() const {
    std::uint64_t size = 0;
    std::uint64_t resident = 0;
    processFile(m_process, "statm") >> size >> resident;
    const auto pageSize = static_cast<double>(::sysconf(_SC_PAGESIZE));
    return static_cast<double>(resident) * pageSize / (1024 * 1024);
}

} // namespace pallistrom
