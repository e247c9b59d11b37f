// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Connection.h"
#include "platform/linux/keyboardservice/KeyboardInterface.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom {

/// What came of a call. Nothing yet, at first.
struct Outcome {
    bool isHere = false;
    std::string error; ///< its name; empty if there was none
    std::optional<std::uint32_t> value;
};

/// A program that calls the service, without waiting for the answers.
class Client {
public:
    explicit Client(const Loop& loop);
    Client(const Loop& loop, uid_t user);

    /// Calls a method; `signature` and the rest are as sd_bus_message_append() takes them.
    template<typename... Arguments>
    std::shared_ptr<const Outcome>
    call(const char* method, const char* signature = "", Arguments... arguments) {
        OwnedMessage message = make(method);
        static_cast<void>(sd_bus_message_append(message.get(), signature, arguments...));
        return send(std::move(message));
    }

    /// An empty call, to be filled and sent.
    [[nodiscard]] OwnedMessage make(const char* method) const;

    std::shared_ptr<const Outcome> send(OwnedMessage message);

    /// What AccessChanged has said, in order.
    [[nodiscard]] const std::vector<std::uint32_t>& news() const { return m_news; }

    [[nodiscard]] const Connection& connection() const { return m_connection; }

private:
    void listen();
    static int heard(sd_bus_message* signal, void* client, sd_bus_error* error);
    static int answered(sd_bus_message* answer, void* outcome, sd_bus_error* error);

    Connection m_connection;
    std::vector<std::uint32_t> m_news;
    OwnedSlot m_listening;
};

} // namespace pallistrom
