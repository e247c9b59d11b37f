// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/Download.h"

#include <QIODevice>
#include <QNetworkProxyFactory>
#include <QNetworkReply>
#include <QNetworkRequest>

#include <utility>

namespace pallistrom {

namespace {

// Of the system, but none for this computer itself.
class Proxies final : public QNetworkProxyFactory {
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override {
        return isLoopback(query.url()) ? QList{QNetworkProxy(QNetworkProxy::NoProxy)}
                                       : systemProxyForQuery(query);
    }
};

QNetworkRequest requestFor(const QUrl& address, const std::string& userAgent) {
    QNetworkRequest request(address);
    request.setRawHeader("User-Agent", QByteArray::fromStdString(userAgent));
    // As they are: what is unpacked on the way may grow beyond every limit.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setRawHeader("Accept-Language", "en");
    for (const auto attribute : {QNetworkRequest::CookieLoadControlAttribute,
                                 QNetworkRequest::CookieSaveControlAttribute,
                                 QNetworkRequest::AuthenticationReuseAttribute}) {
        request.setAttribute(attribute, QNetworkRequest::Manual);
    }
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    return request;
}

bool isRedirect(int status) {
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

int statusOf(const QNetworkReply& reply) {
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

} // namespace

Download::Download(DownloadRules rules, QIODevice& sink) : m_rules(std::move(rules)), m_sink(sink) {
    m_network.setProxyFactory(new Proxies); // which is the network's from here on
    for (auto* const timer : {&m_totalTimer, &m_silenceTimer}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, [this] {
            end(QStringLiteral("The server takes too long."));
        });
    }
    m_refusal.setSingleShot(true);
    connect(&m_refusal, &QTimer::timeout, this, [this] {
        end(QStringLiteral("The address is not a secure one."));
    });
}

Download::~Download() {
    dropReply();
}

void Download::start(const QUrl& address) {
    m_totalTimer.start(m_rules.total);
    fetch(address);
}

void Download::fetch(const QUrl& address) {
    if (!mayFetch(address, m_rules.policy)) {
        m_refusal.start(0);
        return;
    }
    constexpr qint64 bufferSize = 262144;
    m_silenceTimer.start(m_rules.silence);
    m_reply = m_network.get(requestFor(address, m_rules.userAgent));
    m_reply->setReadBufferSize(bufferSize);
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &Download::headersCame);
    connect(m_reply, &QNetworkReply::readyRead, this, &Download::bytesCame);
    connect(m_reply, &QNetworkReply::finished, this, &Download::replyFinished);
}

void Download::headersCame() {
    const int status = statusOf(*m_reply);
    m_announced = m_reply->header(QNetworkRequest::ContentLengthHeader).toULongLong();
    if (isRedirect(status)) {
        redirect();
    } else if (status >= 300) {
        end(QStringLiteral("The server answers \"%1\".").arg(status));
    } else if (m_announced > m_rules.bytes) {
        end(QStringLiteral("The server has more to send than was expected."));
    } else {
        m_isBody = status == 200;
        m_silenceTimer.start();
    }
}

void Download::redirect() {
    const QUrl target = m_reply->url().resolved(
        QUrl::fromEncoded(m_reply->rawHeader("Location"), QUrl::StrictMode));
    dropReply();
    if (++m_redirects > m_rules.redirects) {
        end(QStringLiteral("The server leads from one address to the next."));
    } else {
        fetch(target);
    }
}

void Download::bytesCame() {
    if (!m_isBody) {
        return;
    }
    const QByteArray bytes = m_reply->readAll();
    m_received += static_cast<std::uint64_t>(bytes.size());
    if (m_received > m_rules.bytes) {
        end(QStringLiteral("The server has more to send than was expected."));
    } else if (m_sink.write(bytes) != bytes.size()) {
        end(QStringLiteral("What has come cannot be saved: %1.").arg(m_sink.errorString()));
    } else {
        m_silenceTimer.start();
        Q_EMIT progressed(m_received);
    }
}

void Download::replyFinished() {
    bytesCame();
    if (m_reply == nullptr) {
        return;
    }
    const auto error = m_reply->error();
    const bool hasHungUp =
        error == QNetworkReply::NoError || error == QNetworkReply::RemoteHostClosedError;
    if (m_isBody && hasHungUp && m_received < m_announced) {
        end(QStringLiteral("The server hangs up too early."));
    } else if (error != QNetworkReply::NoError) {
        end(QStringLiteral("The server cannot be reached: %1.").arg(m_reply->errorString()));
    } else {
        end(m_isBody ? QString() : QStringLiteral("The server's answer makes no sense."));
    }
}

void Download::end(const QString& problem) {
    dropReply();
    m_totalTimer.stop();
    m_silenceTimer.stop();
    m_refusal.stop();
    Q_EMIT finished(problem);
}

void Download::dropReply() {
    if (m_reply != nullptr) {
        m_reply->disconnect(this);
        // Which ends it. It may be at work right now, so not at once.
        m_reply->deleteLater();
        m_reply = nullptr;
    }
    m_isBody = false;
}

} // namespace pallistrom
