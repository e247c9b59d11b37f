// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/SettingsFile.h"

#include "platform/Log.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>
#include <QThread>

#include <cstdio>

namespace pallistrom {

namespace {

constexpr qint64 longest = 65536;

// Gives up after a tenth of a second: the caller's thread filters keys.
bool isLockedSoon(QLockFile& lock) {
    constexpr int tries = 20;
    constexpr int pauseInMilliseconds = 5;
    // Left to itself, the lock would sleep for all of the time before it tries again.
    for (int i = 0; i < tries && !lock.tryLock(0); ++i) {
        if (lock.error() != QLockFile::LockFailedError) {
            return false;
        }
        QThread::msleep(pauseInMilliseconds);
    }
    return lock.isLocked();
}

// Moves whatever it is. QFile would try to read what it cannot rename, and a pipe might never end.
bool move(const QString& from, const QString& to) {
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

} // namespace

struct SettingsFile::Contents {
    std::string text;
    SettingsText::Settings settings;
    bool isReadable = true;
};

SettingsFile::SettingsFile(const QString& folder, const QString& name)
    : m_folder(folder), m_path(folder + QLatin1Char('/') + name) {}

SettingsText::Settings SettingsFile::read() const {
    return contents().settings;
}

SettingsFile::Contents SettingsFile::contents() const {
    const QFileInfo info(m_path);
    if (!info.exists()) {
        return {};
    }
    QFile file(m_path);
    Contents result{.text = {}, .settings = {.values = {}, .isDamaged = true}, .isReadable = false};
    // Opening what is no file, a pipe say, might never return.
    if (!info.isFile() || info.size() > longest || !file.open(QIODevice::ReadOnly)) {
        return result;
    }
    result.text = file.read(longest).toStdString();
    if (file.error() == QFile::NoError) {
        result.settings = SettingsText::parse(result.text);
        result.isReadable = true;
    }
    return result;
}

QString SettingsFile::write(const SettingsText::Values& changes) const {
    if (!QDir().mkpath(m_folder)) {
        return QStringLiteral("the folder %1 cannot be made").arg(m_folder);
    }
    // Whoever else writes the file waits, so that neither undoes what the other did.
    QLockFile lock(m_path + QStringLiteral(".lock"));
    if (!isLockedSoon(lock)) {
        return QStringLiteral("the folder %1 cannot be written or is in use").arg(m_folder);
    }
    const Contents before = contents();
    return before.settings.isDamaged ? replaceDamaged(before, changes)
                                     : save(SettingsText::withChanges(before.text, changes));
}

QString SettingsFile::save(const std::string& text) const {
    const auto size = static_cast<qint64>(text.size());
    if (size > longest) {
        return QStringLiteral("the file would be too long to be read again");
    }
    QSaveFile file(m_path);
    // commit() does not notice when the disk is too full for what is still in its buffer.
    if (file.open(QIODevice::WriteOnly) && file.write(text.data(), size) == size && file.flush() &&
        file.commit()) {
        return {};
    }
    return file.errorString();
}

QString SettingsFile::replaceDamaged(const Contents& before,
                                     const SettingsText::Values& changes) const {
    QString kept = m_path + QStringLiteral(".damaged");
    for (int i = 2; QFileInfo::exists(kept); ++i) {
        kept = m_path + QStringLiteral(".damaged-%1").arg(i);
    }
    // A copy, where that can be had, leaves the settings in place until the new ones are there.
    if (!(before.isReadable ? QFile::copy(m_path, kept) : move(m_path, kept))) {
        return QStringLiteral("the damaged file cannot be kept as %1").arg(kept);
    }
    SettingsText::Values values = changes;
    values.insert(before.settings.values.begin(), before.settings.values.end());
    if (QString problem = save(SettingsText::make(values)); !problem.isEmpty()) {
        // Else each further try would leave one more.
        before.isReadable ? QFile::remove(kept) : move(kept, m_path);
        return problem;
    }
    NSLog(QStringLiteral("Pallistrom: the settings file was damaged; it is kept as %1")
              .arg(kept)
              .toStdString());
    return {};
}

} // namespace pallistrom
