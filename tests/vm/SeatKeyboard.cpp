// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "SeatKeyboard.h"

#include <fcntl.h>
#include <linux/input.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <ctime>
#include <span>
#include <utility>

namespace pallistrom::vm {

namespace {

std::chrono::nanoseconds timeOf(const input_event& event) {
    return std::chrono::seconds{event.input_event_sec} +
           std::chrono::microseconds{event.input_event_usec};
}

std::string nameOf(int descriptor) {
    std::array<char, 256> name{};
    return ::ioctl(descriptor, EVIOCGNAME(name.size() - 1), name.data()) < 0 ? "" : name.data();
}

} // namespace

std::optional<SeatKeyboard> SeatKeyboard::open(const std::filesystem::path& node,
                                               const std::string& name) {
    FileDescriptor descriptor{::open(node.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)};
    if (descriptor.get() < 0 || nameOf(descriptor.get()) != name) {
        return std::nullopt;
    }
    int clock = CLOCK_MONOTONIC;
    ::ioctl(descriptor.get(), EVIOCSCLOCKID, &clock);
    return SeatKeyboard{std::move(descriptor), node};
}

SeatKeyboard::SeatKeyboard(FileDescriptor descriptor, std::filesystem::path node)
    : m_descriptor{std::move(descriptor)}, m_node{std::move(node)} {}

bool SeatKeyboard::read(std::vector<SeenEvent>& events) {
    std::array<input_event, 64> buffer{};
    for (;;) {
        const ssize_t size = ::read(descriptor(), buffer.data(), sizeof buffer);
        if (size <= 0) {
            const bool isThere = size < 0 && errno != ENODEV;
            if (!isThere) {
                releaseAll(events);
            }
            return isThere;
        }
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        for (const input_event& event :
             std::span{buffer}.first(static_cast<std::size_t>(size) / sizeof(input_event))) {
            m_hasOverflowed |= event.type == EV_SYN && event.code == SYN_DROPPED;
            if (event.type == EV_KEY) {
                m_down[event.code] = event.value != 0;
            }
            events.push_back({.type = event.type,
                              .code = event.code,
                              .value = event.value,
                              .time = timeOf(event),
                              .read = now,
                              .node = m_node});
        }
    }
}

void SeatKeyboard::releaseAll(std::vector<SeenEvent>& events) {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    forEachKey(m_down, [this, now, &events](EvdevCode key) {
        events.push_back(
            {.type = EV_KEY, .code = key, .value = 0, .time = now, .read = now, .node = m_node});
    });
    m_down.reset();
}

} // namespace pallistrom::vm
