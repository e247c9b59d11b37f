// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserDefaults.h"
#include "platform/linux/SettingsFile.h"
#include "platform/linux/SettingsText.h"

#include <QFileSystemWatcher>
#include <QString>

#include <string_view>

namespace pallistrom {

/// The user defaults in a SettingsFile: read whole when it changes, answered from memory, written
/// at each change. What cannot be saved counts for the life of the process and is tried again with
/// the next write.
///
/// Changes that other processes make are seen once the run loop has served the watch on the folder.
/// Main thread only.
class FileUserDefaults final : public UserDefaults {
public:
    /// Makes `folder` if it is missing.
    explicit FileUserDefaults(const QString& folder,
                              const QString& fileName = QStringLiteral("settings.ini"));

    [[nodiscard]] bool boolForKey(std::string_view key) const override;
    void setBoolForKey(bool value, std::string_view key) override;
    void registerDefaults(const Registration& defaults) override;

    /// Returns all values that are stored.
    [[nodiscard]] const SettingsText::Values& stored() const { return m_stored; }

private:
    void load();
    void watch();

    SettingsFile m_file;
    SettingsText::Values m_stored;  ///< what the file says, and what it could not be told yet
    SettingsText::Values m_unsaved; ///< what it could not be told yet
    SettingsText::Values m_registered;
    QString m_readingTrouble; ///< kept, as the next, so that trouble which lasts is logged once
    QString m_savingTrouble;
    QFileSystemWatcher m_watcher;
};

} // namespace pallistrom
