// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/Service.h"

#include "platform/Log.h"

#include <cstdlib>
#include <string>
#include <utility>

namespace pallistrom {

Service::Service(sd_event* loop, KeyControl& keys, EventTapController& tap, GrantFile grants)
    : m_loop{loop},
      m_keys{keys},
      m_state{.grants = GrantStore{std::move(grants)}},
      m_filter{m_state, keys, tap},
      m_desk{m_state, keys},
      m_watchdog{loop} {
    m_keys.setObserver(this);
}

Service::~Service() {
    m_keys.setObserver(nullptr);
    m_state.grants.save();
}

void Service::start() {
    connect();
    update();
}

void Service::connect() {
    m_side = std::make_unique<BusSide>(m_loop, busPriority, receiver());
    if (const int result = m_side->open(); result < 0) {
        lost("there is no system bus");
    }
}

BusSide::Receiver Service::receiver() {
    return {.arrived = [this](const std::string& caller,
                              UserId user) { return m_desk.arrive(*m_side, caller, user, now()); },
            .called =
                [this](const std::string& caller, PendingCall call) {
                    m_desk.carryOut(*m_side, caller, std::move(call), [this] { update(); });
                    update();
                },
            .vanished =
                [this](const std::string& caller) {
                    m_desk.vanish(*m_side, caller, now());
                    update();
                },
            .loginChanged =
                [this](const LoginState& login) {
                    m_state.login = login;
                    update();
                },
            .ready =
                [this] {
                    m_isReady = true;
                    m_reconnects = 0;
                    m_watchdog.ready(m_filter.status());
                },
            .lost =
                [this](std::string_view why) {
                    lost(why);
                }};
}

// What is connected is in the middle of telling us, so its end comes on a later turn.
void Service::lost(std::string_view why) {
    if (m_lossSource) {
        return;
    }
    if (m_reconnects == 0) {
        NSLog("Pallistrom: " + std::string{why} + "; trying again");
    }
    const int result = into(m_lossSource, [this](sd_event_source** source) {
        return sd_event_add_defer(m_loop, source, reconnect, this);
    });
    if (result < 0) {
        static_cast<void>(sd_event_exit(m_loop, EXIT_FAILURE));
    }
}

int Service::reconnect(sd_event_source* /*source*/, void* service) {
    auto& self = *static_cast<Service*>(service);
    self.m_lossSource.reset();
    self.m_side.reset();
    self.m_desk.vanishAll(self.now());
    self.update();
    if (++self.m_reconnects > mostReconnects) {
        NSLog("Pallistrom: the system bus does not come back");
        return sd_event_exit(self.m_loop, EXIT_FAILURE);
    }
    return into(self.m_reconnectTimer, [&self](sd_event_source** source) {
        return sd_event_add_time_relative(self.m_loop,
                                          source,
                                          CLOCK_MONOTONIC,
                                          static_cast<std::uint64_t>(reconnectTime.count()),
                                          0,
                                          reconnectNow,
                                          &self);
    });
}

int Service::reconnectNow(sd_event_source* /*source*/, std::uint64_t /*time*/, void* service) {
    auto& self = *static_cast<Service*>(service);
    self.m_reconnectTimer.reset();
    self.connect();
    return 0;
}

void Service::panicked() {
    const std::optional<ActiveSession> active = m_state.login.active;
    if (active) {
        m_state.grants.suspend(active->user);
    }
    update();
    if (active) {
        NSLog("Pallistrom: user " + std::to_string(active->user) + " pressed the panic chord");
    }
}

void Service::keyboardsChanged() {
    update();
}

// The keyboards may answer what they are told with news of their own.
void Service::update() {
    m_isOutdated = true;
    if (std::exchange(m_isUpdating, true)) {
        return;
    }
    while (std::exchange(m_isOutdated, false)) {
        updateOnce();
    }
    m_isUpdating = false;
    saveSoon();
}

void Service::updateOnce() {
    m_state.users.passTime(now());
    m_state.users.sessionIs(m_state.login.active);
    prepareKeyboards();
    const std::string status = m_filter.status();
    m_filter.update();
    if (m_isReady && m_filter.status() != status) {
        Watchdog::tell(m_filter.status());
    }
    m_watchdog.setGrabbing(m_keys.isGrabbing());
    if (m_side) {
        m_desk.spreadNews(*m_side);
    }
    armHoldTimer();
}

// Long before anybody types, so that no session has to take notice of new keyboards in its midst.
void Service::prepareKeyboards() {
    if (!m_isPrepared && !m_state.grants.isEmpty()) {
        m_isPrepared = true;
        m_keys.prepare();
    }
}

void Service::armHoldTimer() {
    m_holdTimer.reset();
    if (const auto next = m_state.users.nextChange()) {
        const int result = into(m_holdTimer, [&](sd_event_source** source) {
            return sd_event_add_time(m_loop,
                                     source,
                                     CLOCK_MONOTONIC,
                                     static_cast<std::uint64_t>(next->count()),
                                     0,
                                     holdIsOver,
                                     this);
        });
        if (result < 0) {
            // Without a timer a hold would never end.
            static_cast<void>(sd_event_exit(m_loop, EXIT_FAILURE));
        }
    }
}

// On a later turn: the keyboards are free by then, and whoever asked for that has the answer.
void Service::saveSoon() {
    if (!m_state.grants.isToBeSaved() || m_saveSource) {
        return;
    }
    const int result = into(m_saveSource, [this](sd_event_source** source) {
        return sd_event_add_defer(m_loop, source, saveNow, this);
    });
    if (result < 0) {
        m_state.grants.save();
        return;
    }
    static_cast<void>(sd_event_source_set_priority(m_saveSource.get(), busPriority));
}

int Service::saveNow(sd_event_source* /*source*/, void* service) {
    auto& self = *static_cast<Service*>(service);
    self.m_saveSource.reset();
    self.m_state.grants.save();
    return 0;
}

int Service::holdIsOver(sd_event_source* /*source*/, std::uint64_t /*time*/, void* service) {
    static_cast<Service*>(service)->update();
    return 0;
}

Moment Service::now() const {
    std::uint64_t microseconds = 0;
    static_cast<void>(sd_event_now(m_loop, CLOCK_MONOTONIC, &microseconds));
    return Moment{microseconds};
}

} // namespace pallistrom
