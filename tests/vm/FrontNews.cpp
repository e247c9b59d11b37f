// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FrontNews.h"

#include "pallistrom/Names.h"

#include <poll.h>
#include <sys/eventfd.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <stdexcept>

namespace pallistrom::vm {

namespace {

constexpr const char* method = "SetFrontApplication";

} // namespace

FrontNews::FrontNews()
    : m_monitor{connect()}, m_questions{connect()}, m_stop{::eventfd(0, EFD_CLOEXEC)} {
    const std::string rule = "type='method_call',member='" + std::string{method} + '\'';
    sd_bus_set_monitor(m_monitor.get(), 1);
    if (sd_bus_call_method(m_monitor.get(),
                           "org.freedesktop.DBus",
                           "/org/freedesktop/DBus",
                           "org.freedesktop.DBus.Monitoring",
                           "BecomeMonitor",
                           nullptr,
                           nullptr,
                           "asu",
                           1,
                           rule.c_str(),
                           0U) < 0) {
        throw std::runtime_error{"the bus does not let us listen"};
    }
    m_thread = std::thread{[this] {
        run();
    }};
}

FrontNews::~FrontNews() {
    eventfd_write(m_stop.get(), 1);
    m_thread.join();
}

FrontNews::Bus FrontNews::connect() {
    sd_bus* opened = nullptr;
    if (sd_bus_open_system(&opened) < 0) {
        throw std::runtime_error{"there is no system bus"};
    }
    return Bus{opened};
}

std::vector<FrontNews::Item> FrontNews::waitFor(std::size_t count, Deadline deadline) {
    std::unique_lock lock{m_mutex};
    m_changed.wait_for(lock,
                       std::chrono::milliseconds{deadline.remainingMilliseconds()},
                       [this, count] { return m_items.size() >= count; });
    return m_items;
}

void FrontNews::run() {
    std::array<pollfd, 2> watched{
        pollfd{.fd = sd_bus_get_fd(m_monitor.get()), .events = POLLIN, .revents = 0},
        pollfd{.fd = m_stop.get(), .events = POLLIN, .revents = 0}};
    while (watched[1].revents == 0) {
        sd_bus_message* message = nullptr;
        while (sd_bus_process(m_monitor.get(), &message) > 0) {
            if (message != nullptr) {
                take(message);
                message = sd_bus_message_unref(message);
            }
        }
        ::poll(watched.data(), watched.size(), -1);
    }
}

void FrontNews::take(sd_bus_message* message) {
    std::uint8_t kind = 0;
    if (sd_bus_message_is_method_call(message, nullptr, method) <= 0 ||
        sd_bus_message_read(message, "y", &kind) <= 0) {
        return;
    }
    // The service takes calls in their order: what comes after this one is answered by somebody who
    // goes by it already.
    sd_bus_call_method(m_questions.get(),
                       Names::keyboardBusName.data(),
                       Names::keyboardObject.data(),
                       "org.freedesktop.DBus.Peer",
                       "Ping",
                       nullptr,
                       nullptr,
                       "");
    const std::lock_guard lock{m_mutex};
    m_items.push_back({static_cast<FrontApplication>(kind), Deadline::Clock::now()});
    m_changed.notify_all();
}

} // namespace pallistrom::vm
