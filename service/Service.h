// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/CallDesk.h"
#include "service/Filter.h"
#include "service/KeyControl.h"
#include "service/ServiceState.h"
#include "service/Watchdog.h"
#include "service/bus/BusSide.h"
#include "service/bus/Handles.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace pallistrom {

/// The keyboard service: brings together who is in front of the machine, what they may and want,
/// and the keyboards.
///
/// A bus that goes away is waited for as long as a program that vanished is; what was wanted stands
/// meanwhile. After that the loop ends with a failure, for whoever started the service to start it
/// anew.
class Service : private KeyControl::Observer {
public:
    /// Devices are to have any that comes before this.
    static constexpr int busPriority = SD_EVENT_PRIORITY_NORMAL + 50;
    static constexpr Moment reconnectTime = std::chrono::seconds{1};
    static constexpr int mostReconnects = 30;

    /// `loop`, `keys` and `tap` outlive this; `keys` reports to nobody else.
    Service(sd_event* loop, KeyControl& keys, EventTapController& tap, GrantFile grants);
    ~Service() override;
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

    /// Goes to the bus.
    void start();

private:
    void panicked() override;
    void keyboardsChanged() override;

    void connect();
    [[nodiscard]] BusSide::Receiver receiver();
    void lost(std::string_view why);
    void update();
    void updateOnce();
    void prepareKeyboards();
    void armHoldTimer();
    void saveSoon();
    [[nodiscard]] Moment now() const;
    static int reconnect(sd_event_source* source, void* service);
    static int reconnectNow(sd_event_source* source, std::uint64_t time, void* service);
    static int saveNow(sd_event_source* source, void* service);
    static int holdIsOver(sd_event_source* source, std::uint64_t time, void* service);

    sd_event* m_loop;
    KeyControl& m_keys;
    ServiceState m_state;
    Filter m_filter;
    CallDesk m_desk;
    Watchdog m_watchdog;
    std::unique_ptr<BusSide> m_side;
    bool m_isReady = false;
    bool m_isPrepared = false;
    bool m_isUpdating = false;
    bool m_isOutdated = false;
    int m_reconnects = 0;
    OwnedSource m_lossSource;
    OwnedSource m_reconnectTimer;
    OwnedSource m_holdTimer;
    OwnedSource m_saveSource;
};

} // namespace pallistrom
