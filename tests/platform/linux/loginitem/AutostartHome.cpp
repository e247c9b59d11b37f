// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "AutostartHome.h"

#include "InChildProcess.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <system_error>

namespace pallistrom {

namespace fs = std::filesystem;

AutostartHome::AutostartHome() {
    fs::create_directory(config());
    put(program(), "");
    fs::permissions(program(), fs::perms::owner_all);
}

AutostartHome::~AutostartHome() {
    // Else it could not be removed.
    std::error_code ignored;
    fs::permissions(folder(), fs::perms::owner_all, ignored);
}

AutostartPlaces AutostartHome::places() const {
    return {.userFile = file(),
            .systemFiles = {path() / "missing" / "pallistrom.desktop", systemFile()},
            .program = program(),
            .programFolders = {path() / "missing", path() / "bin"},
            .desktops = {"Test"}};
}

void AutostartHome::put(const fs::path& path, std::string_view text) {
    fs::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << text << std::flush;
    EXPECT_TRUE(file.good()) << path;
}

std::string AutostartHome::entry(std::string_view rest) const {
    return "[Desktop Entry]\nType=Application\nExec=" + program().string() + "\n" +
           std::string(rest);
}

std::string AutostartHome::text(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> AutostartHome::names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder())) {
        names.push_back(entry.path().filename());
    }
    std::sort(names.begin(), names.end());
    return names;
}

void AutostartHome::giveAway() const {
    InChildProcess::giveToNobody(path());
}

} // namespace pallistrom
