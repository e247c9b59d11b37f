// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/Download.h"
#include "platform/linux/update/FeedReading.h"
#include "platform/linux/update/WorkerThread.h"

#include <QBuffer>

#include <optional>
#include <string>

namespace pallistrom {

/// What to look for, and where.
struct FeedRequest {
    QUrl address;
    Ed25519Key key;
    DownloadRules rules;
    std::string newestSeen;
    UpdateSituation situation;
};

/// Fetches a feed and reads it.
class FeedDownload final : public ThreadWork {
    Q_OBJECT

public:
    explicit FeedDownload(FeedRequest request) : m_request(std::move(request)) {}

    void begin() override;

Q_SIGNALS:
    void answered(const pallistrom::FeedAnswer& answer);

private:
    void downloaded(const QString& problem);

    FeedRequest m_request;
    QBuffer m_bytes{this};
    std::optional<Download> m_download;
};

} // namespace pallistrom
