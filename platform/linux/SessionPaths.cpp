// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/SessionPaths.h"

#include <algorithm>
#include <cstdlib>

namespace pallistrom::SessionPaths {

namespace {

namespace fs = std::filesystem;

fs::path homeFolder(const char* name, std::string_view belowHome) {
    fs::path folder = variable(name);
    return folder.is_absolute() ? folder : fs::path(variable("HOME", "/")) / belowHome;
}

} // namespace

std::string variable(const char* name, std::string_view fallback) {
    const char* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe)
    return std::string(value != nullptr && *value != '\0' ? value : fallback);
}

std::vector<fs::path> absolutePathsIn(std::string_view list) {
    std::vector<fs::path> paths;
    while (!list.empty()) {
        const auto end = std::min(list.find(':'), list.size());
        if (fs::path path = list.substr(0, end); path.is_absolute()) {
            paths.push_back(std::move(path));
        }
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return paths;
}

fs::path configHome() {
    return homeFolder("XDG_CONFIG_HOME", ".config");
}

fs::path stateHome() {
    return homeFolder("XDG_STATE_HOME", ".local/state");
}

fs::path cacheHome() {
    return homeFolder("XDG_CACHE_HOME", ".cache");
}

std::vector<fs::path> configFolders() {
    return absolutePathsIn(variable("XDG_CONFIG_DIRS", "/etc/xdg"));
}

std::vector<fs::path> dataFolders() {
    auto folders = absolutePathsIn(variable("XDG_DATA_DIRS", "/usr/local/share:/usr/share"));
    folders.insert(folders.begin(), homeFolder("XDG_DATA_HOME", ".local/share"));
    return folders;
}

} // namespace pallistrom::SessionPaths
