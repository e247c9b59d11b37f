// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/BusConnection.h"

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace pallistrom {

/// A keyboard service on the bus that filters nothing. What it answers is set by hand, what it is
/// asked is written down. Runs on the run loop of the test.
class FakeBusService {
public:
    /// What it says of itself.
    struct Answers {
        std::uint32_t version = 1;
        std::uint32_t access = 0;
        std::uint32_t grant = 0;
        const char* type = "u"; ///< of the numbers that it answers with: "u", or "s" for a lie
        bool refusesTap = false;
        bool knowsSessions = true;
        int refusals = 0;            ///< how many calls are too much, from now on
        bool hangs = false;          ///< answers nothing
        bool keepsGrantOpen = false; ///< until closeGrant()
    };

    explicit FakeBusService(Answers first);
    FakeBusService(const FakeBusService&) = delete;
    FakeBusService& operator=(const FakeBusService&) = delete;
    ~FakeBusService() = default;

    Answers answers;

    /// Returns whether it has its name on the bus.
    [[nodiscard]] bool isThere() const { return m_isThere; }

    /// Changes the access and tells those who have asked.
    void changeAccess(std::uint32_t access);

    /// Answers the request that is open.
    void closeGrant(std::uint32_t answer);

    /// Returns what it was asked since the last time, in order.
    std::vector<std::string> take() { return std::exchange(m_asked, {}); }

    [[nodiscard]] const std::vector<std::string>& asked() const { return m_asked; }

    /// Returns who is told of changes, by the names that the bus gave them.
    [[nodiscard]] const std::vector<std::string>& listeners() const { return m_listeners; }

    /// For whoever writes it down elsewhere: called after each entry, and when the service has its
    /// name and when somebody who is told of changes has left the bus.
    std::function<void(const std::string& entry)> tell;

private:
    void busIsReady();
    void hasName(bool isOurs);
    void ownerChanged(sd_bus_message* signal);
    void note(std::string entry);
    void handle(sd_bus_message* message);
    [[nodiscard]] bool handleQuestion(sd_bus_message* message, const std::string& member);
    [[nodiscard]] static std::string argumentsOf(sd_bus_message* message);
    void reply(sd_bus_message* message, std::uint32_t number) const;

    BusConnection m_bus;
    bool m_isThere = false;
    BusSlot m_object;
    BusSlot m_name;
    BusSlot m_owners;
    BusMessage m_openGrant;
    std::vector<std::string> m_listeners;
    std::vector<std::string> m_asked;
};

} // namespace pallistrom
