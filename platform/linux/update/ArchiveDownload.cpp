// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/ArchiveDownload.h"

#include "platform/linux/update/ArchiveSignature.h"

namespace pallistrom {

void ArchiveDownload::begin() {
    m_folder.emplace(m_request.folder);
    m_file.setFileName(QString::fromStdString(m_folder->archive().string()));
    if (!m_folder->isThere() || !m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly,
                                             QFile::ReadOwner | QFile::WriteOwner)) {
        Q_EMIT answered(QStringLiteral("There is no place to save the download in."), {});
        return;
    }
    auto rules = m_request.rules;
    rules.bytes = m_request.archive.length;
    m_download.emplace(rules, m_file);
    connect(&*m_download, &Download::progressed, this, [this](quint64 received) {
        Q_EMIT progressed(received, m_request.archive.length);
    });
    connect(&*m_download, &Download::finished, this, &ArchiveDownload::downloaded);
    m_download->start(QUrl(QString::fromStdString(m_request.archive.address), QUrl::StrictMode));
}

void ArchiveDownload::downloaded(const QString& problem) {
    const bool isSaved = m_file.flush();
    m_file.close();
    if (!problem.isEmpty() || !isSaved) {
        Q_EMIT answered(isSaved ? problem : QStringLiteral("The disk is full."), {});
        return;
    }
    Q_EMIT checking();
    const auto& [address, length, signature, system] = m_request.archive;
    const bool isGood = signature && ArchiveSignature::isGood(
                                         m_folder->archive(), length, *signature, m_request.key);
    Q_EMIT answered(isGood ? QString()
                           : QStringLiteral("What has come does not have the right signature."),
                    isGood ? m_file.fileName() : QString());
}

} // namespace pallistrom
