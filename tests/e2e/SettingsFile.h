// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace pallistrom::e2e {

/// The settings of Pallistrom, written as another process of the same person would write them: the
/// file is replaced as a whole, and what it holds besides stays as it is.
class SettingsFile {
public:
    /// `configFolder` is the program's XDG_CONFIG_HOME.
    explicit SettingsFile(const std::filesystem::path& configFolder);

    void set(const std::map<std::string, bool>& settings) const;

    /// Whether a setting is stored as true. False too if it is not stored.
    bool isTrue(const std::string& key) const;

private:
    std::filesystem::path m_path;
};

} // namespace pallistrom::e2e
