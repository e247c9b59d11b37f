// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Pallistrom.h"

#include "Shortcut.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace pallistrom::e2e {

namespace {

std::filesystem::path logFile(const Home& home) {
    return home.path() / "pallistrom.log";
}

ChildProcess start(const Home& home, const SettingsFile& settings, const std::string& display) {
    // A first start would show a window, which takes the keyboard from the field.
    settings.set({{"hasCompletedOnboarding", true}});
    return ChildProcess{{.arguments = {Pallistrom::path()},
                         .environment = home.environment(display),
                         .errorFile = logFile(home)}};
}

} // namespace

std::string Pallistrom::path() {
    const char* chosen = std::getenv("PALLISTROM_PROGRAM"); // NOLINT(concurrency-mt-unsafe)
    return chosen != nullptr ? chosen : PALLISTROM_PROGRAM;
}

Pallistrom::Pallistrom(const std::string& display)
    : m_settings{m_home.configFolder()},
      m_connection{display},
      m_process{start(m_home, m_settings, display)} {}

void Pallistrom::setSwitches(const std::map<std::string, bool>& switches) const {
    std::map<std::string, bool> settings;
    for (const auto& [shortcut, isOn] : switches) {
        settings.emplace("shortcut." + shortcut + ".enabled", isOn);
    }
    m_settings.set(settings);
}

std::vector<std::string> Pallistrom::switchOnOnly(const std::vector<std::string>& ids) const {
    const auto isChosen = [&](const Shortcut& shortcut) {
        return std::find(ids.begin(), ids.end(), shortcut.id) != ids.end();
    };
    std::map<std::string, bool> switches;
    for (const Shortcut& shortcut : allShortcuts()) {
        switches.emplace(shortcut.id, isChosen(shortcut));
    }
    setSwitches(switches);
    std::vector<std::string> failed;
    for (const Shortcut& shortcut : allShortcuts()) {
        if (!(isChosen(shortcut) ? waitUntilGrabbed(shortcut.grab)
                                 : waitUntilReleased(shortcut.grab))) {
            failed.push_back(shortcut.name);
        }
    }
    return failed;
}

bool Pallistrom::waitUntilGrabbed(KeyCombination combination) const {
    return waitUntil([&] { return isGrabbed(m_connection, combination); });
}

bool Pallistrom::waitUntilReleased(KeyCombination combination) const {
    return waitUntil([&] { return !isGrabbed(m_connection, combination); });
}

std::string Pallistrom::log() const {
    std::ifstream file{logFile(m_home)};
    return {std::istreambuf_iterator<char>{file}, {}};
}

} // namespace pallistrom::e2e
