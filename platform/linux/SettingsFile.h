// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/SettingsText.h"

#include <QString>

#include <string>

namespace pallistrom {

/// A settings file on the disk. Holds nothing in memory.
///
/// A write replaces the file atomically and keeps the lines that it does not change. A file that is
/// damaged or cannot be read is first kept under another name, which is logged.
class SettingsFile {
public:
    /// `folder` is made by the first write if it is missing.
    explicit SettingsFile(const QString& folder,
                          const QString& name = QStringLiteral("settings.ini"));

    [[nodiscard]] const QString& folder() const { return m_folder; }

    [[nodiscard]] const QString& path() const { return m_path; }

    /// Returns what the file says; nothing if it is missing, and nothing but damage if it cannot be
    /// read or is larger than 64 KiB.
    [[nodiscard]] SettingsText::Settings read() const;

    /// Stores `changes`, waiting a tenth of a second at most for another writer. Returns an empty
    /// text, or what stood in the way; then the file is as it was.
    [[nodiscard]] QString write(const SettingsText::Values& changes) const;

private:
    struct Contents;

    [[nodiscard]] Contents contents() const;
    [[nodiscard]] QString save(const std::string& text) const;
    [[nodiscard]] QString replaceDamaged(const Contents& before,
                                         const SettingsText::Values& changes) const;

    QString m_folder;
    QString m_path;
};

} // namespace pallistrom
