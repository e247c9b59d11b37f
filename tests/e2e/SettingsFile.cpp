// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "SettingsFile.h"

#include <algorithm>
#include <fstream>
#include <vector>

namespace pallistrom::e2e {

namespace {

constexpr const char* sectionLine = "[General]";

std::vector<std::string> linesOf(const std::filesystem::path& path) {
    std::vector<std::string> lines;
    std::ifstream file{path};
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    if (std::find(lines.begin(), lines.end(), sectionLine) == lines.end()) {
        lines.insert(lines.begin(), sectionLine);
    }
    return lines;
}

} // namespace

SettingsFile::SettingsFile(const std::filesystem::path& configFolder)
    : m_path{configFolder / "pallistrom" / "settings.ini"} {}

void SettingsFile::set(const std::map<std::string, bool>& settings) const {
    std::vector<std::string> lines = linesOf(m_path);
    for (const auto& [key, value] : settings) {
        const std::string start = key + '=';
        std::erase_if(lines, [&](const std::string& line) { return line.starts_with(start); });
        lines.insert(std::find(lines.begin(), lines.end(), sectionLine) + 1,
                     start + (value ? "true" : "false"));
    }
    std::filesystem::create_directories(m_path.parent_path());
    const std::filesystem::path replacement = m_path.string() + ".new";
    std::ofstream file{replacement};
    for (const std::string& line : lines) {
        file << line << '\n';
    }
    file.close();
    std::filesystem::rename(replacement, m_path);
}

bool SettingsFile::isTrue(const std::string& key) const {
    const auto lines = linesOf(m_path);
    return std::find(lines.begin(), lines.end(), key + "=true") != lines.end();
}

} // namespace pallistrom::e2e
