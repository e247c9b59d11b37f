// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/bus/BusConnection.h"

#include "platform/linux/SessionPaths.h"

#include <poll.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

namespace pallistrom {

namespace {

constexpr std::uint64_t forever = std::numeric_limits<std::uint64_t>::max();

std::string addressOfBus() {
    const std::string address = SessionPaths::variable("DBUS_SYSTEM_BUS_ADDRESS");
    return address.empty() ? "unix:path=/run/dbus/system_bus_socket" : address;
}

std::unique_ptr<sd_bus, BusRelease> openBus(const std::string& address) {
    sd_bus* made = nullptr;
    if (sd_bus_new(&made) < 0) {
        return nullptr;
    }
    std::unique_ptr<sd_bus, BusRelease> bus(made);
    const bool isStarted = sd_bus_set_address(made, address.c_str()) >= 0 &&
                           sd_bus_set_bus_client(made, 1) >= 0 &&
                           sd_bus_set_watch_bind(made, 1) >= 0 && sd_bus_start(made) >= 0;
    return isStarted ? std::move(bus) : nullptr;
}

void forget(QSocketNotifier* notifier) {
    if (notifier != nullptr) {
        // Not deleted at once: it may be the one that is speaking.
        notifier->setEnabled(false);
        notifier->deleteLater();
    }
}

} // namespace

BusConnection::BusConnection() : BusConnection(addressOfBus()) {}

BusConnection::BusConnection(const std::string& address) : m_bus(openBus(address)) {
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, this, [this] { process(); });
    rearm();
}

BusMessage BusConnection::makeCall(const char* service,
                                   const char* path,
                                   const char* interface,
                                   const char* member) const {
    sd_bus_message* made = nullptr;
    if (!m_bus ||
        sd_bus_message_new_method_call(m_bus.get(), &made, service, path, interface, member) < 0) {
        return nullptr;
    }
    return BusMessage(made);
}

void BusConnection::send(BusMessage call) {
    if (call) {
        sd_bus_message_set_expect_reply(call.get(), 0);
        sd_bus_send(m_bus.get(), call.get(), nullptr);
        rearm();
    }
}

BusSlot BusConnection::ask(BusMessage call, sd_bus_message_handler_t answered, void* userData) {
    sd_bus_slot* slot = nullptr;
    if (call) {
        sd_bus_call_async(m_bus.get(), &slot, call.get(), answered, userData, forever);
        rearm();
    }
    return BusSlot(slot);
}

// A bus that does not read leaves messages in the library's hands, which would wait for it without
// an end. Once the socket takes anything it has room for more than we ever say at once.
bool BusConnection::flush(std::chrono::milliseconds atMost) {
    if (!isReady() || (sd_bus_get_events(m_bus.get()) & POLLOUT) == 0) {
        return true;
    }
    pollfd socket{.fd = sd_bus_get_fd(m_bus.get()), .events = POLLOUT, .revents = 0};
    return poll(&socket, 1, static_cast<int>(atMost.count())) > 0 &&
           (socket.revents & POLLOUT) != 0 && sd_bus_flush(m_bus.get()) >= 0;
}

BusSlot
BusConnection::listen(const BusSignal& signal, sd_bus_message_handler_t heard, void* userData) {
    std::string rule = "type='signal'";
    for (const auto& [key, value] : {std::pair("sender", signal.sender),
                                     std::pair("path", signal.path),
                                     std::pair("interface", signal.interface),
                                     std::pair("member", signal.member),
                                     std::pair("arg0", signal.argument)}) {
        if (value != nullptr) {
            rule += std::string(",") + key + "='" + value + '\'';
        }
    }
    sd_bus_slot* slot = nullptr;
    sd_bus_add_match_async(m_bus.get(), &slot, rule.c_str(), heard, nullptr, userData);
    rearm();
    return BusSlot(slot);
}

void BusConnection::process() {
    // So that a flood leaves the rest of the program its turn.
    constexpr int mostPerTurn = 64;
    int result = 1;
    for (int i = 0; i < mostPerTurn && result > 0; ++i) {
        result = sd_bus_process(m_bus.get(), nullptr);
    }
    rearm();
    if (!m_wasReady && isReady()) {
        m_wasReady = true;
        Q_EMIT ready();
    }
    if (sd_bus_is_open(m_bus.get()) <= 0) {
        Q_EMIT lost();
    }
}

void BusConnection::rearm() {
    if (!m_bus || sd_bus_is_open(m_bus.get()) <= 0) {
        m_timer.stop();
        watch(-1);
        return;
    }
    watch(sd_bus_get_fd(m_bus.get()));
    const int events = sd_bus_get_events(m_bus.get());
    if (m_readable != nullptr) {
        m_readable->setEnabled(events > 0 && (events & POLLIN) != 0);
        m_writable->setEnabled(events > 0 && (events & POLLOUT) != 0);
    }
    std::uint64_t due = forever;
    if (sd_bus_get_timeout(m_bus.get(), &due) < 0 || due == forever) {
        m_timer.stop();
        return;
    }
    const std::chrono::steady_clock::time_point moment{std::chrono::microseconds(due)};
    m_timer.start(std::max(
        std::chrono::ceil<std::chrono::milliseconds>(moment - std::chrono::steady_clock::now()),
        std::chrono::milliseconds(0)));
}

// It is another descriptor before there is a socket to connect to.
void BusConnection::watch(int descriptor) {
    if (m_readable != nullptr && m_readable->socket() == descriptor) {
        return;
    }
    forget(std::exchange(m_readable, nullptr));
    forget(std::exchange(m_writable, nullptr));
    if (descriptor < 0) {
        return;
    }
    m_readable = new QSocketNotifier(descriptor, QSocketNotifier::Read, this);
    m_writable = new QSocketNotifier(descriptor, QSocketNotifier::Write, this);
    for (QSocketNotifier* const notifier : {m_readable, m_writable}) {
        QObject::connect(notifier, &QSocketNotifier::activated, this, [this] { process(); });
    }
}

} // namespace pallistrom
