// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/AppcastItem.h"
#include "platform/linux/update/ArchiveFolder.h"
#include "platform/linux/update/Download.h"
#include "platform/linux/update/WorkerThread.h"

#include <QFile>

#include <filesystem>
#include <optional>
#include <utility>

namespace pallistrom {

/// Which archive to fetch, and whose signature it has to have.
struct ArchiveRequest {
    AppcastItem::Archive archive;
    Ed25519Key key;
    DownloadRules rules; ///< of which the number of bytes does not count: the archive has its own
    std::filesystem::path folder;
};

/// Fetches an archive and checks it. The file is there while this is.
class ArchiveDownload final : public ThreadWork {
    Q_OBJECT

public:
    explicit ArchiveDownload(ArchiveRequest request) : m_request(std::move(request)) {}

    void begin() override;

Q_SIGNALS:
    void progressed(quint64 received, quint64 expected);

    /// All has come, and is looked at.
    void checking();

    /// The last signal: the archive has come and is what was signed, or `problem` is a sentence.
    void answered(const QString& problem, const QString& file);

private:
    void downloaded(const QString& problem);

    ArchiveRequest m_request;
    std::optional<ArchiveFolder> m_folder;
    QFile m_file{this};
    std::optional<Download> m_download;
};

} // namespace pallistrom
