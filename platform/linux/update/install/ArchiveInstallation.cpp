// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/ArchiveInstallation.h"

#include "platform/linux/update/install/FolderExchange.h"
#include "platform/linux/update/install/NewProgram.h"
#include "platform/linux/update/install/PackedFiles.h"
#include "platform/linux/update/install/Problems.h"
#include "platform/linux/update/install/Tools.h"

#include <QFile>

#include <array>
#include <cerrno>
#include <chrono>
#include <fstream>
#include <string_view>
#include <utility>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;

// It answers at once; but the computer may be slow.
constexpr std::chrono::seconds trialTime{30};

QString unpackerOf(const fs::path& archive) {
    std::array<char, 6> beginning{};
    std::ifstream stream(archive, std::ios::binary);
    stream.read(beginning.data(), beginning.size());
    return Tools::unpackerFor({beginning.data(), static_cast<std::size_t>(stream.gcount())});
}

bool hasSucceeded(const QProcess& process) {
    return process.error() == QProcess::UnknownError &&
           process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

} // namespace

ArchiveInstallation::ArchiveInstallation(Order order, Done done)
    : m_order(std::move(order)), m_done(std::move(done)) {
    m_turn.setSingleShot(true);
    QObject::connect(&m_turn, &QTimer::timeout, &m_turn, [this] { begin(); });
    m_turn.start(0);
}

ArchiveInstallation::~ArchiveInstallation() {
    m_process.disconnect();
    m_process.kill();
    m_process.waitForFinished();
    if (m_folder) {
        Tools::removeLater(m_folder->path());
    }
}

void ArchiveInstallation::begin() {
    m_folder = UpdateFolder::make(m_order.topFolder);
    if (!m_folder) {
        finishWithError(errno);
        return;
    }
    m_writer.emplace(m_folder->content());
    m_reader.emplace(*m_writer);
    unpack();
}

void ArchiveInstallation::unpack() {
    const QString unpacker = unpackerOf(m_order.archive);
    if (unpacker.isEmpty()) {
        finish(Problems::badArchive());
        return;
    }
    Tools::prepare(
        m_process, unpacker, {QStringLiteral("--decompress"), QStringLiteral("--stdout")});
    m_process.setStandardInputFile(QFile::decodeName(m_order.archive.c_str()));
    QObject::connect(
        &m_process, &QProcess::readyReadStandardOutput, &m_process, [this] { takeBytes(); });
    QObject::connect(&m_process, &QProcess::finished, &m_process, [this] { unpacked(); });
    startProcess(Problems::missingTool(unpacker.toStdString()));
}

void ArchiveInstallation::startProcess(const std::string& problemIfNot) {
    QObject::connect(&m_process,
                     &QProcess::errorOccurred,
                     &m_process,
                     [this, problemIfNot](QProcess::ProcessError error) {
                         if (error == QProcess::FailedToStart) {
                             finish(problemIfNot);
                         }
                     });
    m_process.start(QIODevice::ReadOnly);
}

// A pipe holds 64 KiB, so no more comes at once.
void ArchiveInstallation::takeBytes() {
    const QByteArray bytes = m_process.readAllStandardOutput();
    if (!m_isRefused &&
        !m_reader->take({bytes.constData(), static_cast<std::size_t>(bytes.size())})) {
        m_isRefused = true;
        m_process.kill();
    }
}

void ArchiveInstallation::unpacked() {
    takeBytes();
    m_process.disconnect();
    if (m_isRefused) {
        finishWithError(m_writer->error());
    } else if (!hasSucceeded(m_process) || !m_reader->isComplete()) {
        finish(Problems::badArchive());
    } else {
        sync();
    }
}

void ArchiveInstallation::sync() {
    const QString tool = QStringLiteral("sync");
    Tools::prepare(
        m_process,
        tool,
        {QStringLiteral("--file-system"), QFile::decodeName(m_folder->content().c_str())});
    m_process.setStandardInputFile(QProcess::nullDevice());
    QObject::connect(&m_process, &QProcess::finished, &m_process, [this] {
        m_process.disconnect();
        if (hasSucceeded(m_process)) {
            examine();
        } else {
            finishWithError(EIO);
        }
    });
    startProcess(Problems::missingTool(tool.toStdString()));
}

void ArchiveInstallation::examine() {
    const auto verdict = NewProgram::examine(m_folder->content(), m_order.version, m_order.running);
    if (verdict == NewProgram::Verdict::Fits) {
        tryOut();
    } else {
        finish(Problems::unfit(verdict));
    }
}

// An exchange for a program that wants newer libraries would leave the user without any.
void ArchiveInstallation::tryOut() {
    NewProgram::prepareTrial(m_process, m_folder->content());
    QObject::connect(&m_process, &QProcess::finished, &m_process, [this] {
        m_process.disconnect();
        if (hasSucceeded(m_process)) {
            exchange();
        } else {
            finish(Problems::doesNotStart());
        }
    });
    m_turn.disconnect();
    QObject::connect(&m_turn, &QTimer::timeout, &m_turn, [this] { m_process.kill(); });
    m_turn.start(trialTime);
    startProcess(Problems::doesNotStart());
}

void ArchiveInstallation::exchange() {
    if (!PackedFiles::areAllIn(m_order.topFolder)) {
        finish(Problems::sharedFolder(m_order.topFolder));
        return;
    }
    finishWithError(
        FolderExchange::exchange(m_order.topFolder, m_folder->content(), m_folder->aside()));
}

// 0 is no error, except where the rules refused what the archive holds.
void ArchiveInstallation::finishWithError(int error) {
    if (error == 0) {
        finish(m_isRefused ? Problems::badArchive() : std::string());
    } else {
        finish(Problems::ofSystem(error, m_order.topFolder.parent_path()));
    }
}

// What is told is told on a turn of its own: whoever hears of it may destroy this.
void ArchiveInstallation::finish(const std::string& problem) {
    m_process.disconnect();
    m_writer.reset();
    if (m_folder) {
        Tools::removeLater(std::exchange(m_folder, std::nullopt)->path());
    }
    m_turn.disconnect();
    QObject::connect(
        &m_turn, &QTimer::timeout, &m_turn, [done = m_done, problem] { done(problem); });
    m_turn.start(0);
}

} // namespace pallistrom
