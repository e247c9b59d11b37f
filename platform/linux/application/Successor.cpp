// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/Successor.h"

#include "platform/linux/application/StartedBy.h"

#include <linux/close_range.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

namespace pallistrom::Successor {

namespace {

// As the process was started: Qt takes what it knows out of those that main gets.
std::vector<std::string> ownArguments() {
    std::ifstream file("/proc/self/cmdline", std::ios::binary);
    std::vector<std::string> list;
    for (std::string argument; std::getline(file, argument, '\0');) {
        list.push_back(argument);
    }
    return list;
}

} // namespace

// The bus has handed over its call; the next one is not the first any more.
std::vector<std::string> arguments(std::vector<std::string> ofThisProcess) {
    std::erase(ofThisProcess, StartedBy::serviceArgument);
    return ofThisProcess;
}

void start(const std::filesystem::path& program) {
    constexpr unsigned firstAfterStandardError = 3;
    std::vector<std::string> list = arguments(ownArguments());
    list.resize(list.empty() ? 1 : list.size());
    list.front() = program.string();
    std::vector<char*> pointers;
    pointers.reserve(list.size() + 1);
    for (std::string& argument : list) {
        pointers.push_back(argument.data());
    }
    pointers.push_back(nullptr);
    // Nobody has asked for the windows of this start.
    unsetenv("XDG_ACTIVATION_TOKEN"); // NOLINT(concurrency-mt-unsafe): the loop has ended
    unsetenv("DESKTOP_STARTUP_ID");   // NOLINT(concurrency-mt-unsafe)
    static_cast<void>(close_range(firstAfterStandardError, ~0U, CLOSE_RANGE_CLOEXEC));
    execv(program.c_str(), pointers.data());
}

} // namespace pallistrom::Successor
