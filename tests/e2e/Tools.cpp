// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Tools.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <vector>

namespace pallistrom::e2e {

namespace {

bool isInstalled(const std::string& program) {
    if (program.find('/') != std::string::npos) {
        return ::access(program.c_str(), X_OK) == 0;
    }
    const char* path = std::getenv("PATH"); // NOLINT(concurrency-mt-unsafe)
    std::istringstream folders{path != nullptr ? path : ""};
    for (std::string folder; std::getline(folders, folder, ':');) {
        if (::access((std::filesystem::path{folder} / program).c_str(), X_OK) == 0) {
            return true;
        }
    }
    return false;
}

} // namespace

std::string missingPrograms(std::initializer_list<std::string> programs) {
    std::string missing;
    for (const std::string& program : programs) {
        if (!isInstalled(program)) {
            missing += (missing.empty() ? "not there: " : ", ") + program;
        }
    }
    return missing;
}

} // namespace pallistrom::e2e
