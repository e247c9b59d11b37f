// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Home.h"

#include <array>
#include <cstdlib>

namespace pallistrom::e2e {

namespace {

/// Kept from the environment of the tests: where programs are, and how sanitizers report.
constexpr std::array inheritedVariables{
    "PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "TSAN_OPTIONS", "UBSAN_OPTIONS"};

} // namespace

Home::Home() {
    std::filesystem::create_directory(configFolder());
    std::filesystem::create_directory(path() / "runtime");
    std::filesystem::permissions(path() / "runtime", std::filesystem::perms::owner_all);
}

std::map<std::string, std::string> Home::environment(const std::string& display) const {
    std::map<std::string, std::string> environment{
        {"DISPLAY", display},
        {"HOME", path()},
        {"XDG_CONFIG_HOME", configFolder()},
        {"XDG_CACHE_HOME", path() / "cache"},
        {"XDG_DATA_HOME", path() / "data"},
        {"XDG_RUNTIME_DIR", path() / "runtime"},
        {"XDG_SESSION_TYPE", "x11"},
        {"LANG", "C.UTF-8"},
        // An address that no bus has: programs neither reach the person's bus nor start one.
        {"DBUS_SESSION_BUS_ADDRESS", "disabled:"},
        {"DBUS_SYSTEM_BUS_ADDRESS", "disabled:"},
        {"GDK_BACKEND", "x11"},
        {"GSETTINGS_BACKEND", "memory"},
        {"GSK_RENDERER", "cairo"},
        {"GTK_A11Y", "none"},
        {"NO_AT_BRIDGE", "1"},
        {"QT_QPA_PLATFORM", "xcb"},
    };
    for (const char* name : inheritedVariables) {
        if (const char* value = std::getenv(name)) { // NOLINT(concurrency-mt-unsafe)
            environment.emplace(name, value);
        }
    }
    return environment;
}

} // namespace pallistrom::e2e
