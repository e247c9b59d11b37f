// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/loginitem/AutostartFile.h"

#include "platform/linux/applications/DesktopEntryLines.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

#include <unistd.h>

#include <system_error>
#include <utility>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;
using enum SMAppServiceStatus;
using LoginItemRules::Program;

constexpr std::size_t longest = 262144;

NSError errorAbout(const fs::path& path, const std::string& what) {
    return {.localizedDescription = path.string() + ": " + what};
}

QString nameOf(const fs::path& path) {
    return QFile::decodeName(path.c_str());
}

} // namespace

AutostartFile::AutostartFile(AutostartPlaces places)
    : m_places(std::move(places)),
      m_session{.desktops = m_places.desktops,
                .program = m_places.program.string(),
                .find = [this](const std::string& name) {
                    return find(name);
                }} {}

SMAppServiceStatus AutostartFile::status() {
    if (m_status && m_basis.areUnchanged()) {
        return *m_status;
    }
    forget();
    m_status = look();
    return m_basis.areSettled() ? *m_status : *std::exchange(m_status, std::nullopt);
}

void AutostartFile::forget() {
    m_basis.clear();
    m_status.reset();
}

SMAppServiceStatus AutostartFile::look() {
    const SmallFile user = read(m_places.userFile);
    if (user.state == SmallFile::State::Missing) {
        const auto system = systemEntry();
        const auto status =
            LoginItemRules::status(system ? std::optional(system->text) : std::nullopt, m_session);
        return status == SMAppServiceStatusNotRegistered && !canBeMade()
                   ? SMAppServiceStatusNotFound
                   : status;
    }
    return user.state == SmallFile::State::Read ? LoginItemRules::status(user.text, m_session)
                                                : SMAppServiceStatusNotFound;
}

SmallFile AutostartFile::read(const fs::path& path) {
    m_basis.add(path);
    return SmallFile::read(path, longest);
}

// The first there is; one that cannot be read has no text, and so starts nothing.
std::optional<SmallFile> AutostartFile::systemEntry() {
    for (const fs::path& path : m_places.systemFiles) {
        if (auto file = read(path); file.state != SmallFile::State::Missing) {
            return file;
        }
    }
    return std::nullopt;
}

// Whether the user's file, which is missing, could be written.
bool AutostartFile::canBeMade() {
    fs::path folder = m_places.userFile.parent_path();
    std::error_code ignored;
    while (!fs::exists(folder, ignored) && folder.has_relative_path()) {
        folder = folder.parent_path();
    }
    m_basis.add(folder);
    return fs::is_directory(folder, ignored) && access(folder.c_str(), W_OK | X_OK) == 0;
}

Program AutostartFile::find(const std::string& name) {
    if (name.find('/') != std::string::npos) {
        return fs::path(name).is_absolute() ? judge(name) : Program::Missing;
    }
    for (const fs::path& folder : m_places.programFolders) {
        const auto found = name.empty() ? Program::Missing : judge(folder / name);
        if (found != Program::Missing) {
            return found;
        }
    }
    return Program::Missing;
}

// By its path: an update puts another file in the place of the one that runs.
Program AutostartFile::judge(const fs::path& candidate) {
    m_basis.add(candidate);
    std::error_code ignored;
    if (!fs::is_regular_file(candidate, ignored) || access(candidate.c_str(), X_OK) != 0) {
        return Program::Missing;
    }
    return fs::canonical(candidate, ignored) == fs::canonical(m_places.program, ignored)
               ? Program::Ours
               : Program::Other;
}

std::optional<NSError> AutostartFile::enable() {
    forget();
    if (find(m_session.program) != Program::Ours) {
        return errorAbout(m_places.program, "the program is not there any more");
    }
    const SmallFile user = read(m_places.userFile);
    const bool isThere = user.state != SmallFile::State::Missing;
    if (auto error = unusable(user.state)) {
        return error;
    }
    const auto text =
        LoginItemRules::textToEnable(isThere ? std::optional(user.text) : std::nullopt, m_session);
    const bool isDamaged = !user.text.empty() && !DesktopEntryLines::isWellFormed(user.text);
    if (auto error = isDamaged ? replaceDamaged(text) : write(text)) {
        return error;
    }
    return status() == SMAppServiceStatusEnabled
               ? std::nullopt
               : std::optional(
                     errorAbout(m_places.userFile, "the entry is written, but has no effect"));
}

std::optional<NSError> AutostartFile::disable() {
    const auto before = status();
    if (before != SMAppServiceStatusEnabled && before != SMAppServiceStatusRequiresApproval) {
        return errorAbout(m_places.userFile, "the program does not start at login");
    }
    forget();
    const SmallFile user = read(m_places.userFile);
    const bool isThere = user.state != SmallFile::State::Missing;
    if (auto error = unusable(user.state)) {
        return error;
    }
    const auto system = systemEntry();
    if (!isThere && !system) {
        return std::nullopt; // It went just now.
    }
    const auto text =
        LoginItemRules::textToDisable(isThere ? std::optional(user.text) : std::nullopt,
                                      system ? std::optional(system->text) : std::nullopt,
                                      m_session);
    return text ? write(*text) : remove();
}

std::optional<NSError> AutostartFile::unusable(SmallFile::State state) const {
    switch (state) {
    case SmallFile::State::Missing:
    case SmallFile::State::Read:
        return std::nullopt;
    case SmallFile::State::NoFile:
        return errorAbout(m_places.userFile, "this is no file");
    case SmallFile::State::TooLong:
        return errorAbout(m_places.userFile, "the file is too long to be an autostart entry");
    case SmallFile::State::Unreadable:
        return errorAbout(m_places.userFile, "the file cannot be read");
    }
    return std::nullopt;
}

std::optional<NSError> AutostartFile::write(const std::string& text) const {
    const fs::path folder = m_places.userFile.parent_path();
    if (!QDir().mkpath(nameOf(folder))) {
        return errorAbout(folder, "the folder cannot be made");
    }
    QSaveFile file(nameOf(m_places.userFile));
    const auto size = static_cast<qint64>(text.size());
    // commit() does not notice when the disk is too full for what is still in its buffer.
    if (file.open(QIODevice::WriteOnly) && file.write(text.data(), size) == size && file.flush() &&
        file.commit()) {
        return std::nullopt;
    }
    return errorAbout(m_places.userFile,
                      "the entry cannot be written: " + file.errorString().toStdString());
}

std::optional<NSError> AutostartFile::replaceDamaged(const std::string& text) const {
    const QString path = nameOf(m_places.userFile);
    QString kept = path + QStringLiteral(".damaged");
    for (int i = 2; QFile::exists(kept); ++i) {
        kept = path + QStringLiteral(".damaged-%1").arg(i);
    }
    if (!QFile::copy(path, kept)) {
        return errorAbout(m_places.userFile,
                          "the damaged entry cannot be kept as " + kept.toStdString());
    }
    auto error = write(text);
    if (error) {
        // Else each further try would leave one more.
        QFile::remove(kept);
    }
    return error;
}

std::optional<NSError> AutostartFile::remove() const {
    std::error_code error;
    fs::remove(m_places.userFile, error);
    return error ? std::optional(errorAbout(m_places.userFile,
                                            "the entry cannot be removed: " + error.message()))
                 : std::nullopt;
}

} // namespace pallistrom
