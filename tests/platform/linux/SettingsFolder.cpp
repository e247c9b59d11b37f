// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "SettingsFolder.h"

#include "InChildProcess.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace pallistrom {

namespace {

void write(const std::filesystem::path& path, std::string_view text) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << text << std::flush;
    EXPECT_TRUE(file.good()) << path;
}

} // namespace

SettingsFolder::SettingsFolder() : m_path(m_home.path().toStdString() + "/config/pallistrom") {}

SettingsFolder::~SettingsFolder() {
    // Else it could not be removed.
    std::error_code ignored;
    std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, ignored);
}

void SettingsFolder::put(std::string_view text) const {
    make();
    write(file(), text);
}

void SettingsFolder::replace(std::string_view text) const {
    make();
    const auto other = m_path.parent_path() / "replacement";
    write(other, text);
    std::filesystem::rename(other, file());
}

std::string SettingsFolder::text(const std::string& file) const {
    std::ifstream stream(m_path / file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> SettingsFolder::names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(m_path)) {
        names.push_back(entry.path().filename());
    }
    std::sort(names.begin(), names.end());
    return names;
}

void SettingsFolder::runAsNobody(const std::function<void()>& body) const {
    giveAway();
    InChildProcess::runAsNobody(body);
}

void SettingsFolder::giveAway() const {
    InChildProcess::giveToNobody(m_home.path().toStdString());
}

} // namespace pallistrom
