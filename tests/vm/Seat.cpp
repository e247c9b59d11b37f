// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Seat.h"

#include <linux/input-event-codes.h>
#include <poll.h>
#include <sched.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

namespace pallistrom::vm {

namespace {

constexpr const char* folder = "/dev/input";

} // namespace

Seat::Seat(std::string name)
    : m_name{std::move(name)},
      m_folderWatch{::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)},
      m_stop{::eventfd(0, EFD_CLOEXEC)} {
    // The rights of a node may come after it.
    ::inotify_add_watch(m_folderWatch.get(), folder, IN_CREATE | IN_ATTRIB);
    openNewDevices();
    m_thread = std::thread{[this] {
        run();
    }};
}

Seat::~Seat() {
    ::eventfd_write(m_stop.get(), 1);
    m_thread.join();
}

void Seat::run() {
    // Nothing else may keep it from reading, or it misses events.
    const sched_param first{.sched_priority = sched_get_priority_max(SCHED_FIFO)};
    ::pthread_setschedparam(::pthread_self(), SCHED_FIFO, &first);
    for (;;) {
        std::vector<pollfd> waiting{{.fd = m_stop.get(), .events = POLLIN, .revents = 0},
                                    {.fd = m_folderWatch.get(), .events = POLLIN, .revents = 0}};
        {
            const std::lock_guard lock{m_mutex};
            for (const SeatKeyboard& device : m_devices) {
                waiting.push_back({.fd = device.descriptor(), .events = POLLIN, .revents = 0});
            }
        }
        ::poll(waiting.data(), waiting.size(), -1);
        if ((waiting[0].revents & POLLIN) != 0) {
            return;
        }
        const std::lock_guard lock{m_mutex};
        readDevices();
        if ((waiting[1].revents & POLLIN) != 0) {
            openNewDevices();
        }
        m_changed.notify_all();
    }
}

void Seat::readDevices() {
    const auto before = static_cast<Events::difference_type>(m_events.size());
    std::erase_if(m_devices, [this](SeatKeyboard& device) {
        const bool isThere = device.read(m_events);
        m_hasMissedSome |= device.hasOverflowed();
        return !isThere;
    });
    if (before == static_cast<Events::difference_type>(m_events.size())) {
        return;
    }
    // One device may send while another one is read, so that what came first is read last.
    const auto isEarlier = [](const SeenEvent& a, const SeenEvent& b) {
        return a.time < b.time;
    };
    const auto added = m_events.begin() + before;
    const auto first = std::upper_bound(
        m_events.begin(), added, *std::min_element(added, m_events.end(), isEarlier), isEarlier);
    std::stable_sort(first, m_events.end(), isEarlier);
}

void Seat::openNewDevices() {
    std::array<char, 4096> ignored{};
    while (::read(m_folderWatch.get(), ignored.data(), ignored.size()) > 0) {
    }
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator{folder, error}) {
        const bool isKnown =
            std::any_of(m_devices.begin(), m_devices.end(), [&entry](const SeatKeyboard& device) {
                return device.node() == entry.path();
            });
        if (isKnown || !entry.path().filename().string().starts_with("event")) {
            continue;
        }
        if (auto device = SeatKeyboard::open(entry.path(), m_name)) {
            m_devices.push_back(std::move(*device));
        }
    }
}

Seat::Events Seat::waitFor(const std::function<bool(const Events&)>& isEnough, Deadline deadline) {
    std::unique_lock lock{m_mutex};
    const std::chrono::milliseconds left{deadline.remainingMilliseconds()};
    m_changed.wait_for(lock, left, [&] { return isEnough(m_events); });
    return m_events;
}

Seat::Events Seat::seen() {
    const std::lock_guard lock{m_mutex};
    return m_events;
}

void Seat::clear() {
    const std::lock_guard lock{m_mutex};
    m_events.clear();
}

std::vector<std::filesystem::path> Seat::nodes() {
    const std::lock_guard lock{m_mutex};
    std::vector<std::filesystem::path> result;
    for (const SeatKeyboard& device : m_devices) {
        result.push_back(device.node());
    }
    return result;
}

std::string Seat::keysDown() {
    const std::lock_guard lock{m_mutex};
    std::string text;
    for (const SeatKeyboard& device : m_devices) {
        forEachKey(device.down(), [&](EvdevCode key) {
            text += KeyScript::nameOf(key) + " of " + device.node().string() + " ";
        });
    }
    return text;
}

bool Seat::hasMissedSome() {
    const std::lock_guard lock{m_mutex};
    return m_hasMissedSome;
}

std::vector<KeyScript::Event> keysOf(const Seat::Events& events) {
    std::vector<KeyScript::Event> keys;
    for (const SeenEvent& event : events) {
        if (event.type == EV_KEY && event.value != 2) {
            keys.push_back({.key = event.code,
                            .action = event.value == 0 ? KeyAction::Release : KeyAction::Press});
        }
    }
    return keys;
}

} // namespace pallistrom::vm
