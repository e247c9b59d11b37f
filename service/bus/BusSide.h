// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/bus/BusGuard.h"
#include "service/bus/Callers.h"
#include "service/bus/Handles.h"
#include "service/bus/KeyboardObject.h"
#include "service/bus/SystemSide.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace pallistrom {

/// What the service does on the system bus, from the opening of its connections to their end: there
/// is one to its callers and another to the system itself, and neither is kept without the other.
/// The service's name is taken once it is known who is logged in, so no caller is answered before.
class BusSide {
public:
    /// Nobody but the owner may destroy a BusSide, and not while one of these is called.
    struct Receiver {
        std::function<bool(const std::string& caller, UserId user)> arrived;
        std::function<void(const std::string& caller, PendingCall call)> called;
        std::function<void(const std::string& caller)> vanished;
        std::function<void(const LoginState& login)> loginChanged;
        std::function<void()> ready; ///< the name is ours
        /// A connection is over, or of no use.
        std::function<void(std::string_view why)> lost;
    };

    /// `loop` outlives this.
    BusSide(sd_event* loop, int priority, Receiver receiver);

    BusSide(const BusSide&) = delete;
    BusSide& operator=(const BusSide&) = delete;
    ~BusSide();

    /// Returns a negative errno if there is no bus.
    [[nodiscard]] int open();

    /// Tells one caller that its access has changed.
    void tellAccess(const std::string& caller, KeyboardInterface::Access access) const;

    /// Forgets a caller, without a word to anybody. If it calls again it is a new one.
    void dropCaller(const std::string& caller) { m_callers->drop(caller); }

    [[nodiscard]] Authority& authority() const { return m_system->authority(); }

private:
    [[nodiscard]] int serve();
    void takeName();
    static int nameTaken(sd_bus_message* answer, void* side, sd_bus_error* error);

    sd_event* m_loop;
    int m_priority;
    Receiver m_receiver;
    OwnedBus m_bus; // Before whatever has slots on it.
    std::unique_ptr<BusGuard> m_guard;
    std::unique_ptr<Callers> m_callers;
    std::unique_ptr<KeyboardObject> m_object;
    std::unique_ptr<SystemSide> m_system;
    OwnedSlot m_nameQuestion;
};

} // namespace pallistrom
