// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/bus/Call.h"
#include "service/bus/Handles.h"
#include "service/bus/Reply.h"
#include "service/session/LoginState.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace pallistrom {

/// A call that is to be carried out, and the way back to who made it.
struct PendingCall {
    Call call;
    Reply reply;
};

/// Finds out to which user a connection of the bus belongs, and tells when it ends. The bus itself
/// is asked, which knows from the kernel who opened the connection and gives its name to nobody
/// else afterwards; process ids play no part. Nothing waits for the answer but the calls of that
/// caller.
///
/// Watches those alone who have called.
class Callers {
public:
    static constexpr std::size_t mostCallers = 128;
    static constexpr std::size_t mostWaitingCalls = 16;

    struct Receiver {
        /// A new caller. Returns false if there is no room for one more.
        std::function<bool(const std::string& caller, UserId user)> arrived;
        std::function<void(const std::string& caller, PendingCall call)> called;
        std::function<void(const std::string& caller)> vanished;
    };

    /// `bus` outlives this.
    Callers(sd_bus* bus, Receiver receiver) : m_bus{bus}, m_receiver{std::move(receiver)} {}

    ~Callers() = default;
    Callers(const Callers&) = delete;
    Callers& operator=(const Callers&) = delete;

    /// Passes a call to the receiver, in the order in which the caller made them.
    void take(const std::string& caller, PendingCall call);

    /// Forgets a caller whom the receiver has let in, and does not tell the receiver. If it calls
    /// again it is a new one.
    void drop(const std::string& caller) { m_callers.erase(caller); }

private:
    struct Caller {
        Callers* owner = nullptr;
        std::string name;
        bool isKnown = false;
        std::deque<PendingCall> waiting; ///< until it is
        OwnedSlot nameWatch;
        OwnedSlot question;
    };

    void add(const std::string& name, PendingCall call);
    void identified(Caller& caller, std::optional<UserId> user);
    void forget(Caller& caller);

    static int nameChanged(sd_bus_message* message, void* caller, sd_bus_error* error);
    static int nameWatched(sd_bus_message* message, void* caller, sd_bus_error* error);
    static int userTold(sd_bus_message* message, void* caller, sd_bus_error* error);

    sd_bus* m_bus;
    Receiver m_receiver;
    // Slots point at their caller: it must not move.
    std::map<std::string, std::unique_ptr<Caller>, std::less<>> m_callers;
};

} // namespace pallistrom
