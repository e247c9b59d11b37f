// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Connection.h"

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

namespace pallistrom {

/// The system's authority, with a test in the place of the person who is asked.
class FakeAuthority {
public:
    /// What it was asked.
    struct Question {
        std::string kind;
        std::string caller;
        std::string action;
        std::uint32_t flags = 0;
        std::string cancellation;
    };

    explicit FakeAuthority(const Loop& loop);

    FakeAuthority(const FakeAuthority&) = delete;
    FakeAuthority& operator=(const FakeAuthority&) = delete;

    [[nodiscard]] const std::vector<Question>& questions() const { return m_questions; }

    /// The questions that were taken back, by their marks.
    [[nodiscard]] const std::vector<std::string>& cancelled() const { return m_cancelled; }

    /// Answers the oldest question that is open.
    void answer(bool isAuthorized, bool isChallenge);

    void answerWithError(const char* name);

private:
    [[nodiscard]] OwnedMessage takeOldest();
    static int check(sd_bus_message* call, void* authority, sd_bus_error* error);
    static int cancel(sd_bus_message* call, void* authority, sd_bus_error* error);

    Connection m_connection;
    std::vector<Question> m_questions;
    std::vector<std::string> m_cancelled;
    std::deque<OwnedMessage> m_open;
    OwnedSlot m_object;
};

} // namespace pallistrom
