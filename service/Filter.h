// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EventTapController.h"
#include "service/KeyControl.h"
#include "service/ServiceState.h"
#include "service/clients/FilterRule.h"

#include <optional>
#include <string>

namespace pallistrom {

/// Makes the keyboards do what the rule says: filter for one user, with that user's wishes, or for
/// nobody. Says in the system log whenever that changes, and why.
class Filter {
public:
    /// All three outlive this. `tap` is created as soon as that is allowed, and stays.
    Filter(const ServiceState& state, KeyControl& keys, EventTapController& tap)
        : m_state{state}, m_keys{keys}, m_tap{tap} {}

    /// To be called whenever anything may have changed. Does what differs and no more.
    void update();

    /// Words for the system's list of services.
    [[nodiscard]] const std::string& status() const { return m_status; }

private:
    [[nodiscard]] FilterSituation situation() const;
    void applySleep(bool isGoingToSleep);
    void applyWish(const UserWish& wish);
    void tell(std::optional<Hindrance> hindrance);

    const ServiceState& m_state;
    KeyControl& m_keys;
    EventTapController& m_tap;
    bool m_isAllowed = false;
    bool m_isAsleep = false;
    std::optional<UserWish> m_wish; ///< that the keyboards know
    std::string m_status;
};

} // namespace pallistrom
