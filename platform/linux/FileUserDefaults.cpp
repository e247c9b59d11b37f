// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/FileUserDefaults.h"

#include "pallistrom/Names.h"
#include "platform/Log.h"
#include "platform/linux/SettingsChanges.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <string>
#include <utility>

namespace pallistrom {

namespace {

// Logs `now`, what is in the way of something, unless that was in its way `before` already.
void note(QString& before, const QString& now) {
    if (std::exchange(before, now) != now && !now.isEmpty()) {
        NSLog((QStringLiteral("Pallistrom: ") + now).toStdString());
    }
}

} // namespace

UserDefaults& UserDefaults::standardUserDefaults() {
    static FileUserDefaults defaults(
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QLatin1Char('/') +
        QString::fromLatin1(Names::settingsFolder.data(), Names::settingsFolder.size()));
    return defaults;
}

FileUserDefaults::FileUserDefaults(const QString& folder, const QString& fileName)
    : m_file(folder, fileName) {
    // Made now, because only a folder that is there can be watched.
    QDir().mkpath(folder);
    const auto fileChanged = [this] {
        const SettingsText::Values before = m_stored;
        watch();
        load();
        // Our own writes come by here as well.
        if (m_stored != before) {
            SettingsChanges::tell();
        }
    };
    QObject::connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_watcher, fileChanged);
    QObject::connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_watcher, fileChanged);
    watch();
    load();
}

bool FileUserDefaults::boolForKey(std::string_view key) const {
    for (const auto* const layer : {&m_stored, &m_registered}) {
        if (const auto found = layer->find(key); found != layer->end()) {
            return found->second;
        }
    }
    return false;
}

void FileUserDefaults::setBoolForKey(bool value, std::string_view key) {
    m_stored.insert_or_assign(std::string(key), value);
    m_unsaved.insert_or_assign(std::string(key), value);
    const QString problem = m_file.write(m_unsaved);
    if (problem.isEmpty()) {
        m_unsaved.clear();
        note(m_savingTrouble, {});
    } else {
        note(m_savingTrouble, QStringLiteral("the settings cannot be saved: ") + problem);
    }
    watch();
    SettingsChanges::tell();
}

void FileUserDefaults::registerDefaults(const Registration& defaults) {
    for (const auto& [key, value] : defaults) {
        m_registered.insert_or_assign(key, value);
    }
    SettingsChanges::tell();
}

void FileUserDefaults::load() {
    SettingsText::Settings settings = m_file.read();
    note(m_readingTrouble,
         settings.isDamaged
             ? QStringLiteral("the settings file is damaged; what can be read of it counts")
             : QString());
    m_stored = m_unsaved;
    m_stored.merge(settings.values);
}

// To be called before the file is read: what happens in between is then seen at least once.
void FileUserDefaults::watch() {
    // The folder tells of files that take another's place, the file of one that is changed in
    // place. The watch on a file stays with what was there, so it is put on what is there now.
    m_watcher.removePath(m_file.path());
    for (const QString& path : {m_file.folder(), m_file.path()}) {
        if (QFileInfo(path).isReadable()) {
            m_watcher.addPath(path);
        }
    }
}

} // namespace pallistrom
