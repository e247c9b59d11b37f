// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/FeedDownload.h"

namespace pallistrom {

void FeedDownload::begin() {
    m_bytes.open(QIODevice::WriteOnly);
    // Here, so that all that the network needs is made on this thread.
    m_download.emplace(m_request.rules, m_bytes);
    connect(&*m_download, &Download::finished, this, &FeedDownload::downloaded);
    m_download->start(m_request.address);
}

void FeedDownload::downloaded(const QString& problem) {
    if (!problem.isEmpty()) {
        Q_EMIT answered({.problem = problem.toStdString(), .newestVersion = {}, .found = {}});
        return;
    }
    const QByteArray& bytes = m_bytes.data();
    Q_EMIT answered(readFeed({bytes.data(), static_cast<std::size_t>(bytes.size())},
                             m_request.key,
                             m_request.newestSeen,
                             m_request.situation));
}

} // namespace pallistrom
