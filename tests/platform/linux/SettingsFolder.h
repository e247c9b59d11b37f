// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTemporaryDir>

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

/// A settings folder of a test's own, and the other programs that write into it. Removed with all
/// that is in it.
class SettingsFolder {
public:
    /// The folder is not made.
    SettingsFolder();
    SettingsFolder(const SettingsFolder&) = delete;
    SettingsFolder& operator=(const SettingsFolder&) = delete;
    ~SettingsFolder();

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    [[nodiscard]] QString name() const { return QString::fromStdString(m_path.string()); }

    /// The settings file.
    [[nodiscard]] std::filesystem::path file() const { return m_path / "settings.ini"; }

    void make() const { std::filesystem::create_directories(m_path); }

    /// Writes the settings file where it lies.
    void put(std::string_view text) const;

    /// Puts another file in the place of the settings file.
    void replace(std::string_view text) const;

    /// Returns the text of `file` in the folder.
    [[nodiscard]] std::string text(const std::string& file = "settings.ini") const;

    /// Returns the names of all that is in the folder, sorted.
    [[nodiscard]] std::vector<std::string> names() const;

    /// Gives the folder and all that is in it to nobody, and runs `body` as nobody in a child
    /// process.
    void runAsNobody(const std::function<void()>& body) const;

private:
    void giveAway() const;

    QTemporaryDir m_home;
    std::filesystem::path m_path;
};

} // namespace pallistrom
