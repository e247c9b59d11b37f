// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/BusConnection.h"
#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/keys/ModifierTable.h"

#include <QTimer>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace pallistrom {

/// What the service is told. Of each kind only the last word counts.
///
/// The service refuses those who talk too much. A word that it has refused for that reason is told
/// again a little later; and who is in front, which may change faster than anybody types, is told
/// at once as long as that is not the 17th time within a second. While all is well nothing wakes
/// up.
class ServiceWords {
public:
    static constexpr std::chrono::milliseconds againAfter{1000};
    static constexpr std::size_t mostFrontsASecond = 16;

    /// `tapRefused` is called with the name of the error if the service does not switch the tap on
    /// for any other reason.
    explicit ServiceWords(std::function<void(std::string_view error)> tapRefused);

    ~ServiceWords() = default;
    ServiceWords(const ServiceWords&) = delete;
    ServiceWords& operator=(const ServiceWords&) = delete;

    /// Nothing has been told and nothing is to be told any more: the service that heard it is gone.
    void forget();

    /// The grant is wanted after all, whatever became of a withdrawal.
    void dropWithdrawal() { m_withdrawal = {.owner = this}; }

    // Each tells the service that is on `bus`, which outlives the words or is forgotten before.
    void tellSession(BusConnection& bus, const std::string& id);
    void tellWithdrawal(BusConnection& bus);
    void tellEndOfPanic(BusConnection& bus);
    void tellTap(BusConnection& bus, bool on);
    void tellSwitches(BusConnection& bus, std::uint32_t switches);
    void tellModifiers(BusConnection& bus, const ModifierTable& modifiers);
    void tellFrontApplication(BusConnection& bus, FrontApplication application);

private:
    using Clock = std::chrono::steady_clock;

    struct Word {
        ServiceWords* owner = nullptr;
        std::function<BusMessage()> make{};
        BusConnection* bus = nullptr;
        BusSlot call{};                         ///< until it is answered
        std::optional<Clock::time_point> due{}; ///< when it is to be told, if not now
    };

    static void tell(Word& word, BusConnection& bus, std::function<BusMessage()> make);
    static void send(Word& word);
    static int answered(sd_bus_message* answer, void* word, sd_bus_error* error);
    void sendDue();
    void armTimer();

    std::function<void(std::string_view error)> m_tapRefused;
    Word m_withdrawal{.owner = this};
    Word m_endOfPanic{.owner = this};
    Word m_session{.owner = this};
    Word m_switches{.owner = this};
    Word m_modifiers{.owner = this};
    Word m_front{.owner = this};
    Word m_tap{.owner = this};
    /// In the order in which they are told.
    std::array<Word*, 7> m_words{
        &m_withdrawal, &m_endOfPanic, &m_session, &m_switches, &m_modifiers, &m_front, &m_tap};
    std::array<Clock::time_point, mostFrontsASecond> m_frontsTold{}; ///< the last ones
    std::size_t m_oldestFront = 0;                                   ///< of them
    bool m_wantsTap = false;
    QTimer m_timer;
};

} // namespace pallistrom
