// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keyboardservice/ServiceWords.h"

#include "platform/linux/keyboardservice/ServiceAnswers.h"
#include "platform/linux/keyboardservice/ServiceCalls.h"

#include <algorithm>
#include <utility>

namespace pallistrom {

ServiceWords::ServiceWords(std::function<void(std::string_view error)> tapRefused)
    : m_tapRefused(std::move(tapRefused)) {
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { sendDue(); });
}

void ServiceWords::forget() {
    m_timer.stop();
    for (Word* const word : m_words) {
        *word = {.owner = this};
    }
}

void ServiceWords::tellSession(BusConnection& bus, const std::string& id) {
    tell(m_session, bus, [&bus, id] { return ServiceCalls::setSession(bus, id); });
}

void ServiceWords::tellWithdrawal(BusConnection& bus) {
    tell(m_withdrawal, bus, [&bus] { return ServiceCalls::make(bus, "WithdrawGrant"); });
}

void ServiceWords::tellEndOfPanic(BusConnection& bus) {
    tell(m_endOfPanic, bus, [&bus] { return ServiceCalls::make(bus, "EndPanic"); });
}

void ServiceWords::tellTap(BusConnection& bus, bool on) {
    m_wantsTap = on;
    tell(m_tap, bus, [&bus, on] { return ServiceCalls::setTap(bus, on); });
}

void ServiceWords::tellSwitches(BusConnection& bus, std::uint32_t switches) {
    tell(m_switches, bus, [&bus, switches] { return ServiceCalls::setSwitches(bus, switches); });
}

void ServiceWords::tellModifiers(BusConnection& bus, const ModifierTable& modifiers) {
    tell(
        m_modifiers, bus, [&bus, modifiers] { return ServiceCalls::setModifiers(bus, modifiers); });
}

void ServiceWords::tellFrontApplication(BusConnection& bus, FrontApplication application) {
    const auto due = m_frontsTold.at(m_oldestFront) + std::chrono::seconds(1);
    const auto make = [&bus, application] {
        return ServiceCalls::setFrontApplication(bus, application);
    };
    if (due <= Clock::now()) {
        tell(m_front, bus, make);
        return;
    }
    m_front.bus = &bus;
    m_front.make = make;
    m_front.due = due;
    armTimer();
}

void ServiceWords::tell(Word& word, BusConnection& bus, std::function<BusMessage()> make) {
    word.bus = &bus;
    word.make = std::move(make);
    send(word);
}

// What has been said of this kind before is of no interest any more, nor is the answer.
void ServiceWords::send(Word& word) {
    word.due.reset();
    if (ServiceWords& self = *word.owner; &word == &self.m_front) {
        self.m_frontsTold.at(self.m_oldestFront) = Clock::now();
        self.m_oldestFront = (self.m_oldestFront + 1) % mostFrontsASecond;
    }
    word.call = word.bus->ask(word.make(), answered, &word);
}

int ServiceWords::answered(sd_bus_message* answer, void* word, sd_bus_error* /*error*/) {
    auto& told = *static_cast<Word*>(word);
    ServiceWords& self = *told.owner;
    told.call.reset();
    const sd_bus_error* const error = sd_bus_message_get_error(answer);
    if (error == nullptr) {
        return 0;
    }
    if (ServiceAnswers::isTooMuch(error->name)) {
        told.due = Clock::now() + againAfter;
        self.armTimer();
    } else if (&told == &self.m_tap && self.m_wantsTap) {
        self.m_tapRefused(error->name);
    }
    // A service of before knows no sessions and is told the rest all the same.
    return 0;
}

void ServiceWords::sendDue() {
    const auto now = Clock::now();
    for (Word* const word : m_words) {
        if (word->due && *word->due <= now) {
            send(*word);
        }
    }
    armTimer();
}

void ServiceWords::armTimer() {
    std::optional<Clock::time_point> next;
    for (const Word* const word : m_words) {
        if (word->due && (!next || *word->due < *next)) {
            next = word->due;
        }
    }
    if (!next) {
        m_timer.stop();
        return;
    }
    m_timer.start(std::max(std::chrono::ceil<std::chrono::milliseconds>(*next - Clock::now()),
                           std::chrono::milliseconds(0)));
}

} // namespace pallistrom
