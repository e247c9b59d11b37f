// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QTcpServer>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QTcpSocket;

namespace pallistrom {

/// An HTTP server on this computer, which answers as it is told to, honestly or not. Served by the
/// event loop of the thread that made it.
class LoopbackServer {
public:
    /// Called once a request has come; writes the answer, now or later.
    using Answer = std::function<void(QTcpSocket& client)>;

    LoopbackServer();

    /// Speaks through `listener`, to addresses of `scheme`.
    LoopbackServer(std::unique_ptr<QTcpServer> listener, std::string scheme);

    /// Returns the address of "/`name`" here.
    [[nodiscard]] std::string address(std::string_view name) const;

    /// From now on, answers requests for "/`name`" like this.
    void answer(const std::string& name, Answer answer);

    /// The same, as any server does.
    void serve(const std::string& name, std::string body);

    /// Returns the requests that have come, with their headers.
    [[nodiscard]] const std::vector<std::string>& requests() const { return m_requests; }

    /// Announces `length` bytes, sends `body` and hangs up.
    [[nodiscard]] static Answer announcing(std::uint64_t length, std::string body);

    /// Announces nothing, and sends `body` again and again.
    [[nodiscard]] static Answer endless(std::string body);

    /// Announces much, and sends a byte now and then.
    [[nodiscard]] static Answer dripping();

    /// Never says anything.
    [[nodiscard]] static Answer silent();

    [[nodiscard]] static Answer redirecting(const std::string& target);

    /// Says just these bytes and hangs up.
    [[nodiscard]] static Answer saying(std::string bytes);

private:
    void serve(QTcpSocket& client);

    std::unique_ptr<QTcpServer> m_listener;
    std::string m_scheme;
    std::map<std::string, Answer> m_answers;
    std::vector<std::string> m_requests;
};

} // namespace pallistrom
