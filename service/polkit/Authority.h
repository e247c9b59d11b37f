// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keyboardservice/KeyboardInterface.h"
#include "service/bus/Handles.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace pallistrom {

/// Asks the system's authority whether a caller may have keys filtered. It asks a person, which may
/// take minutes; nothing here waits for that.
///
/// The caller is named by its connection to the bus: unlike a process id, that name is never
/// somebody else's a moment later.
class Authority {
public:
    using Answered = std::function<void(KeyboardInterface::GrantAnswer)>;

    /// `bus` outlives this.
    explicit Authority(sd_bus* bus) : m_bus{bus} {}

    ~Authority() = default;
    Authority(const Authority&) = delete;
    Authority& operator=(const Authority&) = delete;

    /// Asks on behalf of `caller`, who has no question out. `answered` is called once, unless the
    /// caller is dropped before.
    void ask(const std::string& caller, Answered answered);

    /// The caller has gone: takes the question off the screen and forgets it.
    void drop(const std::string& caller);

private:
    struct Question {
        Authority* owner = nullptr;
        std::string caller;
        std::string cancellation;
        Answered answered;
        OwnedSlot call;
    };

    void noteTrouble(const sd_bus_error* error);
    static int told(sd_bus_message* answer, void* question, sd_bus_error* error);

    sd_bus* m_bus;
    std::uint64_t m_count = 0;
    std::string m_trouble; ///< the name of the error that the last answer was
    // Slots point at their question: it must not move.
    std::map<std::string, std::unique_ptr<Question>> m_questions;
};

} // namespace pallistrom
