// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Deadline.h"
#include "service/bus/Handles.h"

namespace pallistrom {

/// The event loop of a test, on which everything that takes part lives.
class Loop {
public:
    Loop() : m_event{make()} {}

    [[nodiscard]] sd_event* get() const { return m_event.get(); }

    /// Runs until `condition` holds. Returns whether it did before the deadline, and before the
    /// loop was ended.
    template<typename Condition>
    [[nodiscard]] bool runUntil(Condition condition,
                                Deadline deadline = Deadline{std::chrono::seconds{20}}) const {
        while (!condition()) {
            if (deadline.hasPassed() || hasEnded()) {
                return false;
            }
            // With a limit, for conditions that nothing on the loop brings about.
            if (sd_event_run(get(), 100'000) < 0) {
                return false;
            }
        }
        return true;
    }

    /// Serves whatever is there to be served now.
    void runOnce() const { static_cast<void>(sd_event_run(get(), 0)); }

    [[nodiscard]] bool hasEnded() const {
        const int state = sd_event_get_state(get());
        return state == SD_EVENT_FINISHED || state == SD_EVENT_EXITING;
    }

private:
    static sd_event* make() {
        sd_event* made = nullptr;
        static_cast<void>(sd_event_new(&made));
        return made;
    }

    OwnedEvent m_event;
};

} // namespace pallistrom
