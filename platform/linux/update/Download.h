// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/AddressPolicy.h"

#include <QNetworkAccessManager>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <cstdint>
#include <string>

class QIODevice;
class QNetworkReply;

namespace pallistrom {

/// From where to fetch, as whom, and with how much patience.
struct DownloadRules {
    AddressPolicy policy = AddressPolicy::SecureOnly;
    std::string userAgent{}; ///< all that a server is told of the program
    std::uint64_t bytes = 0;
    std::chrono::milliseconds total{};
    std::chrono::milliseconds silence{}; ///< without a further byte
    int redirects = 5;
};

/// Fetches what lies at an address, by HTTP, through the proxies of the system. Says nothing of the
/// user or the computer to the server, and keeps nothing that the server says. On any thread with
/// an event loop; destroying it ends the download.
class Download final : public QObject {
    Q_OBJECT

public:
    /// What comes is written to `sink`, which outlives this and is open.
    Download(DownloadRules rules, QIODevice& sink);
    ~Download() override;
    Download(const Download&) = delete;
    Download& operator=(const Download&) = delete;

    /// To be called once.
    void start(const QUrl& address);

Q_SIGNALS:
    void progressed(quint64 received);

    /// The last signal, and not from within start(). `problem` is a sentence, or empty if all has
    /// come.
    void finished(const QString& problem);

private:
    void fetch(const QUrl& address);
    void headersCame();
    void bytesCame();
    void replyFinished();
    void redirect();
    void end(const QString& problem);
    void dropReply();

    DownloadRules m_rules;
    QIODevice& m_sink;
    QNetworkAccessManager m_network;
    QNetworkReply* m_reply = nullptr; ///< of the network's
    QTimer m_totalTimer;
    QTimer m_silenceTimer;
    QTimer m_refusal;              ///< ends it on a later turn, as everything else does
    std::uint64_t m_announced = 0; ///< 0 if nothing is
    std::uint64_t m_received = 0;
    int m_redirects = 0;
    bool m_isBody = false; ///< whether what comes is what was asked for
};

} // namespace pallistrom
