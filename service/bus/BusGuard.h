// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/bus/Handles.h"
#include "service/clients/CallerBudgets.h"

#include <functional>

namespace pallistrom {

/// Looks at each message before anything else does: refuses callers who call too much, lets the bus
/// rest when all of them together do, and notices the end of the connection.
///
/// The loop handles one message a turn, after all that is ready at the devices. The rest is for
/// the scheduler: a service in a real-time class that never sleeps would be taken for one that
/// hangs.
class BusGuard {
public:
    /// What all callers together may: far more than programs in good health ever do.
    static constexpr CallBudget::Allowance ofAll{.atOnce = 256, .eachSecond = 4096};
    static constexpr Moment rest = std::chrono::milliseconds{20};

    /// `bus` is attached to `loop` with `priority`; both outlive this. `lost` is called once, and
    /// may not destroy this.
    BusGuard(sd_event* loop, sd_bus* bus, int priority, std::function<void()> lost);

    ~BusGuard() = default;
    BusGuard(const BusGuard&) = delete;
    BusGuard& operator=(const BusGuard&) = delete;

    /// Returns a negative errno if the connection cannot be used.
    [[nodiscard]] int start();

private:
    [[nodiscard]] Moment now() const;
    [[nodiscard]] bool refuse(sd_bus_message* message);
    void startRest();
    static int filter(sd_bus_message* message, void* guard, sd_bus_error* error);
    static int goToRest(sd_event_source* source, void* guard);
    static int endRest(sd_event_source* source, std::uint64_t time, void* guard);

    sd_event* m_loop;
    sd_bus* m_bus;
    int m_priority;
    std::function<void()> m_lost;
    CallerBudgets m_callers;
    CallBudget m_all{ofAll};
    bool m_isLost = false;
    OwnedSlot m_filter;
    OwnedSource m_restSoon;
    OwnedSource m_restTimer;
};

} // namespace pallistrom
