// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keyboardservice/BusKeyboardService.h"

#include "pallistrom/Names.h"
#include "platform/Log.h"
#include "platform/linux/bus/TheBus.h"
#include "platform/linux/keyboardservice/ServiceAnswers.h"
#include "platform/linux/keyboardservice/ServiceCalls.h"

#include <chrono>
#include <string_view>
#include <utility>

namespace pallistrom {

namespace {

std::optional<std::string_view> errorName(sd_bus_message* answer) {
    if (sd_bus_message_is_method_error(answer, nullptr) <= 0) {
        return std::nullopt;
    }
    const sd_bus_error* const error = sd_bus_message_get_error(answer);
    return error != nullptr && error->name != nullptr ? error->name : "";
}

std::optional<std::uint32_t> readNumber(sd_bus_message* message) {
    std::uint32_t number = 0;
    return sd_bus_message_has_signature(message, "u") > 0 &&
                   sd_bus_message_read_basic(message, 'u', &number) > 0
               ? std::optional(number)
               : std::nullopt;
}

void logChange(std::optional<Obstacle> before, std::optional<Obstacle> now) {
    if (!now) {
        NSLog("Pallistrom: the keyboard service may filter the keys");
    } else if (now == Obstacle::ServiceMismatch) {
        NSLog("Pallistrom: the keyboard service is not of this program's version");
    } else if (!before) {
        NSLog("Pallistrom: the keyboard service does not filter the keys any more");
    }
}

} // namespace

BusKeyboardService::BusKeyboardService(std::string session)
    : m_words([this](std::string_view error) { hearThatTapIsRefused(error); }),
      m_session(std::move(session)) {
    m_askAgain.setSingleShot(true);
    m_askAgain.setInterval(ServiceWords::againAfter);
    connect(&m_askAgain, &QTimer::timeout, this, [this] {
        if (m_bus && m_bus->isReady() && !m_question) {
            ask();
        }
    });
}

std::optional<Obstacle> BusKeyboardService::obstacle() {
    if (!m_bus || std::exchange(m_isLost, false)) {
        connectToBus();
    }
    return m_obstacle;
}

void BusKeyboardService::lookAgain() {
    if (!m_bus || m_obstacle == Obstacle::NoSystemBus) {
        connectToBus();
    } else if (m_bus->isReady() && !m_question &&
               (m_obstacle == Obstacle::ServiceNotInstalled ||
                m_obstacle == Obstacle::ServiceSilent || m_obstacle == Obstacle::ServiceMismatch)) {
        ask();
    }
}

void BusKeyboardService::connectToBus() {
    forgetQuestions();
    m_matches = {};
    if (m_bus) {
        // It may be the one that is speaking.
        m_bus->disconnect(this);
        m_bus.release()->deleteLater();
    }
    m_bus = std::make_unique<BusConnection>();
    connect(m_bus.get(), &BusConnection::ready, this, [this] { busIsReady(); });
    connect(m_bus.get(), &BusConnection::lost, this, [this] { busIsLost(); });
}

void BusKeyboardService::busIsReady() {
    m_matches = {
        m_bus->listen({TheBus::name, TheBus::object, TheBus::name, "NameOwnerChanged"},
                      busHandler<&BusKeyboardService::hearOwner>,
                      this),
        m_bus->listen({TheBus::name, TheBus::object, TheBus::name, "ActivatableServicesChanged"},
                      busHandler<&BusKeyboardService::hearActivatable>,
                      this),
        m_bus->listen({Names::keyboardBusName.data(),
                       Names::keyboardObject.data(),
                       Names::keyboardBusName.data(),
                       "AccessChanged"},
                      busHandler<&BusKeyboardService::hearChange>,
                      this)};
    take(Obstacle::ServiceSilent);
    ask();
}

// Whoever asks next finds the next bus: that is at most as often as anybody asks, however often
// buses come and go.
void BusKeyboardService::busIsLost() {
    m_isLost = m_obstacle != Obstacle::NoSystemBus;
    forgetQuestions();
    take(Obstacle::NoSystemBus);
}

void BusKeyboardService::forgetQuestions() {
    m_owner.clear();
    m_question.reset();
    m_words.forget();
    m_askAgain.stop();
    if (std::exchange(m_grantCall, nullptr)) {
        m_request = {};
    }
}

void BusKeyboardService::ask() {
    m_question = m_bus->ask(
        ServiceCalls::getVersion(*m_bus), busHandler<&BusKeyboardService::hearVersion>, this);
}

void BusKeyboardService::hearThatQuestionIsRefused(std::string_view error) {
    if (ServiceAnswers::isTooMuch(error)) {
        m_askAgain.start();
    }
    take(ServiceAnswers::obstacleOfError(error));
}

void BusKeyboardService::hearVersion(sd_bus_message* answer) {
    m_question.reset();
    if (const auto error = errorName(answer)) {
        hearThatQuestionIsRefused(*error);
        return;
    }
    std::uint32_t version = 0;
    if (sd_bus_message_has_signature(answer, "v") <= 0 ||
        sd_bus_message_read(answer, "v", "u", &version) <= 0 ||
        version != KeyboardInterface::version) {
        take(Obstacle::ServiceMismatch);
        return;
    }
    m_owner = sd_bus_message_get_sender(answer);
    if (!m_session.empty()) {
        m_words.tellSession(*m_bus, m_session);
    }
    m_question = m_bus->ask(
        ServiceCalls::make(*m_bus, "GetAccess"), busHandler<&BusKeyboardService::hearAccess>, this);
}

void BusKeyboardService::hearAccess(sd_bus_message* answer) {
    m_question.reset();
    if (const auto error = errorName(answer)) {
        hearThatQuestionIsRefused(*error);
        return;
    }
    const auto access = readNumber(answer);
    take(access ? ServiceAnswers::obstacleOfAccess(*access) : Obstacle::ServiceMismatch);
}

void BusKeyboardService::hearChange(sd_bus_message* signal) {
    // While a question is open, its answer is what counts.
    if (m_question || m_owner.empty() || !isFrom(signal, m_owner)) {
        return;
    }
    const auto access = readNumber(signal);
    take(access ? ServiceAnswers::obstacleOfAccess(*access) : Obstacle::ServiceMismatch);
}

void BusKeyboardService::hearOwner(sd_bus_message* signal) {
    const char* name = nullptr;
    const char* oldOwner = nullptr;
    const char* newOwner = nullptr;
    if (!isFrom(signal, TheBus::name) ||
        sd_bus_message_read(signal, "sss", &name, &oldOwner, &newOwner) <= 0 ||
        name != Names::keyboardBusName) {
        return;
    }
    if (*oldOwner != '\0') {
        forgetQuestions();
        take(Obstacle::ServiceSilent);
    }
    // A question that has made the bus start it reaches it anyway.
    if (*newOwner != '\0' && !m_question) {
        ask();
    }
}

void BusKeyboardService::hearActivatable(sd_bus_message* signal) {
    if (isFrom(signal, TheBus::name) && m_obstacle == Obstacle::ServiceNotInstalled &&
        !m_question) {
        ask();
    }
}

void BusKeyboardService::take(std::optional<Obstacle> obstacle) {
    const auto before = std::exchange(m_obstacle, obstacle);
    if (before != obstacle) {
        logChange(before, obstacle);
    }
    const Request requestBefore = m_request;
    considerRequest();
    if (before != obstacle || !(m_request == requestBefore)) {
        Q_EMIT changed();
    }
}

void BusKeyboardService::requestGrant() {
    m_words.dropWithdrawal();
    m_wantsGrant = !m_request.isOpen;
    const Request before = m_request;
    considerRequest();
    if (!(m_request == before)) {
        Q_EMIT changed();
    }
}

void BusKeyboardService::considerRequest() {
    const bool isKnown =
        m_obstacle != Obstacle::NoSystemBus && m_obstacle != Obstacle::ServiceSilent;
    if (!m_wantsGrant || !isKnown) {
        return;
    }
    m_wantsGrant = false;
    if (m_obstacle == Obstacle::NotGranted) {
        m_grantCall = m_bus->ask(ServiceCalls::make(*m_bus, "RequestGrant"),
                                 busHandler<&BusKeyboardService::hearGrant>,
                                 this);
        m_request = {.isOpen = m_grantCall != nullptr, .answer = {}};
    }
}

void BusKeyboardService::hearGrant(sd_bus_message* answer) {
    m_grantCall.reset();
    const auto number = readNumber(answer);
    m_request = {.isOpen = false,
                 .answer = number ? ServiceAnswers::grantAnswer(*number) : std::nullopt};
    Q_EMIT changed();
}

void BusKeyboardService::withdrawGrant() {
    if (m_bus) {
        m_words.tellWithdrawal(*m_bus);
    }
}

void BusKeyboardService::endPanic() {
    if (m_bus) {
        m_words.tellEndOfPanic(*m_bus);
    }
}

void BusKeyboardService::setTap(bool on) {
    // A program that ends switches it off last, and does not come back here.
    constexpr std::chrono::milliseconds longestGoodbye{100};
    if (m_bus) {
        m_words.tellTap(*m_bus, on);
        if (!on) {
            m_bus->flush(longestGoodbye);
        }
    }
}

void BusKeyboardService::hearThatTapIsRefused(std::string_view error) {
    // What it has signalled since says why.
    if (m_obstacle) {
        return;
    }
    NSLog("Pallistrom: the keyboard service refuses to filter: " + std::string(error));
    take(ServiceAnswers::obstacleOfError(error));
}

void BusKeyboardService::setSwitches(std::uint32_t switches) {
    if (m_bus) {
        m_words.tellSwitches(*m_bus, switches);
    }
}

void BusKeyboardService::setModifiers(const ModifierTable& modifiers) {
    if (m_bus) {
        m_words.tellModifiers(*m_bus, modifiers);
    }
}

void BusKeyboardService::setFrontApplication(FrontApplication application) {
    if (m_bus) {
        m_words.tellFrontApplication(*m_bus, application);
    }
}

} // namespace pallistrom
