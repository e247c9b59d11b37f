// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "RecordedLog.h"

#include "platform/Log.h"

#include <cstdio>
#include <utility>

namespace pallistrom {

namespace {

std::vector<std::string>& lines() {
    static std::vector<std::string> theLines;
    return theLines;
}

} // namespace

void NSLog(std::string_view line) {
    std::fprintf(stderr, "%.*s\n", static_cast<int>(line.size()), line.data());
    lines().emplace_back(line);
}

std::vector<std::string> RecordedLog::take() {
    return std::exchange(lines(), {});
}

} // namespace pallistrom
