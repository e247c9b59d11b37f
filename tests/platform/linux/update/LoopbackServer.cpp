// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "LoopbackServer.h"

#include <QHostAddress>
#include <QTcpSocket>
#include <QTimer>

#include <chrono>
#include <stdexcept>
#include <utility>

namespace pallistrom {

namespace {

void write(QTcpSocket& client, std::string_view bytes) {
    client.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

std::string header(std::string_view status, std::string_view fields) {
    return "HTTP/1.1 " + std::string(status) + "\r\nConnection: close\r\n" + std::string(fields) +
           "\r\n";
}

} // namespace

LoopbackServer::LoopbackServer() : LoopbackServer(std::make_unique<QTcpServer>(), "http") {}

LoopbackServer::LoopbackServer(std::unique_ptr<QTcpServer> listener, std::string scheme)
    : m_listener(std::move(listener)), m_scheme(std::move(scheme)) {
    if (!m_listener->listen(QHostAddress::LocalHost)) {
        throw std::runtime_error("no server can be made");
    }
    QTcpServer* const server = m_listener.get();
    QObject::connect(server, &QTcpServer::pendingConnectionAvailable, server, [this, server] {
        while (QTcpSocket* const client = server->nextPendingConnection()) {
            QObject::connect(
                client, &QTcpSocket::readyRead, client, [this, client] { serve(*client); });
            QObject::connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
            // What came before anybody listened.
            if (client->bytesAvailable() > 0) {
                serve(*client);
            }
        }
    });
}

std::string LoopbackServer::address(std::string_view name) const {
    return m_scheme + "://127.0.0.1:" + std::to_string(m_listener->serverPort()) + "/" +
           std::string(name);
}

void LoopbackServer::answer(const std::string& name, Answer answer) {
    m_answers.insert_or_assign(name, std::move(answer));
}

void LoopbackServer::serve(const std::string& name, std::string body) {
    const auto length = body.size();
    answer(name, announcing(length, std::move(body)));
}

void LoopbackServer::serve(QTcpSocket& client) {
    const QByteArray request = client.peek(65536);
    if (!request.contains("\r\n\r\n")) {
        return;
    }
    client.readAll();
    m_requests.push_back(request.toStdString());
    // "GET /name HTTP/1.1"
    const auto path = request.split(' ').value(1).mid(1).toStdString();
    const auto found = m_answers.find(path);
    if (found == m_answers.end()) {
        saying(header("404 Not Found", "Content-Length: 0\r\n"))(client);
    } else {
        found->second(client);
    }
}

LoopbackServer::Answer LoopbackServer::announcing(std::uint64_t length, std::string body) {
    return saying(header("200 OK", "Content-Length: " + std::to_string(length) + "\r\n") +
                  std::move(body));
}

LoopbackServer::Answer LoopbackServer::endless(std::string body) {
    return [body = std::move(body)](QTcpSocket& client) {
        write(client, header("200 OK", ""));
        write(client, body);
        QObject::connect(&client, &QTcpSocket::bytesWritten, &client, [&client, body] {
            if (client.bytesToWrite() == 0) {
                write(client, body);
            }
        });
    };
}

LoopbackServer::Answer LoopbackServer::dripping() {
    return [](QTcpSocket& client) {
        write(client, header("200 OK", "Content-Length: 100000\r\n"));
        auto* const timer = new QTimer(&client);
        QObject::connect(timer, &QTimer::timeout, &client, [&client] { write(client, "x"); });
        timer->start(std::chrono::milliseconds(1));
    };
}

LoopbackServer::Answer LoopbackServer::silent() {
    return [](QTcpSocket& /*client*/) {
    };
}

LoopbackServer::Answer LoopbackServer::redirecting(const std::string& target) {
    return saying(header("302 Found", "Content-Length: 0\r\nLocation: " + target + "\r\n"));
}

LoopbackServer::Answer LoopbackServer::saying(std::string bytes) {
    return [bytes = std::move(bytes)](QTcpSocket& client) {
        write(client, bytes);
        client.disconnectFromHost();
    };
}

} // namespace pallistrom
