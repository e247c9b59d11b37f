// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "KeyMeasurements.h"

#include "BusyProcesses.h"

#include <cstdio>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace pallistrom {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;
using std::chrono::seconds;
using Microseconds = Latencies::Time;

constexpr seconds patience{5};

std::int32_t pressOrRelease(std::size_t count) {
    return count % 2 == 0 ? 1 : 0;
}

void report(const std::string& what, const Latencies& latencies) {
    std::printf("%s-p50 %.2f us\n", what.c_str(), latencies.percentile(50).count());
    std::printf("%s-p99 %.2f us\n", what.c_str(), latencies.percentile(99).count());
}

Clock::time_point timeOfEvent(const input_event& event) {
    return Clock::time_point(seconds(event.input_event_sec) +
                             std::chrono::microseconds(event.input_event_usec));
}

bool isEvent(const std::optional<input_event>& event, std::uint16_t key, std::int32_t value) {
    return event && event->code == key && event->value == value;
}

} // namespace

// Each try has a key of its own: one of an earlier try may come late, and is none of this one.
// There are many: a clock that counts instructions runs ahead while the machine waits for files.
void KeyMeasurements::warmUp() {
    constexpr milliseconds forOneKey{200};
    constexpr int mostTries = 3'000;
    for (int tries = 0; tries < mostTries; ++tries) {
        const auto key = static_cast<std::uint16_t>(KEY_F1 + tries % 30);
        m_keyboard.send(key, 1);
        m_keyboard.send(key, 0);
        for (auto event = m_keyboard.next(forOneKey); event; event = m_keyboard.next(forOneKey)) {
            if (isEvent(event, key, 0)) {
                return;
            }
        }
    }
    throw std::runtime_error("no key comes out");
}

void KeyMeasurements::plainKeys(const char* name) {
    Latencies latencies;
    const auto wakeUps = m_service.wakeUps();
    const auto before = m_service.processorTime();
    for (std::size_t count = 0; count < m_keys; ++count) {
        latencies.add(timeOf(KEY_A, 1));
        latencies.add(timeOf(KEY_A, 0));
    }
    const Microseconds used = m_service.processorTime() - before;
    report(name, latencies);
    const auto keys = static_cast<double>(2 * m_keys);
    std::printf("%s-processor %.2f us\n", name, used.count() / keys);
    std::printf(
        "%s-wake-ups %.2f /key\n", name, static_cast<double>(m_service.wakeUps() - wakeUps) / keys);
}

void KeyMeasurements::plainKeysAtRate(unsigned eachSecond) {
    Latencies latencies;
    const auto before = m_service.processorTime();
    auto next = Clock::now();
    for (std::size_t count = 0; count < m_keys; ++count) {
        next += std::chrono::nanoseconds(seconds{1}) / eachSecond;
        std::this_thread::sleep_until(next);
        latencies.add(timeOf(KEY_A, pressOrRelease(count)));
    }
    const Microseconds used = m_service.processorTime() - before;
    report("rate-" + std::to_string(eachSecond), latencies);
    std::printf(
        "rate-%u-processor %.2f us\n", eachSecond, used.count() / static_cast<double>(m_keys));
}

void KeyMeasurements::plainKeysUnderLoad() {
    const BusyProcesses others{2};
    plainKeys("loaded");
}

void KeyMeasurements::bursts() {
    constexpr std::size_t inOneBurst = 8;
    Latencies latencies;
    for (std::size_t count = 0; count < m_keys / inOneBurst; ++count) {
        burst(inOneBurst, latencies);
    }
    report("burst", latencies);
}

void KeyMeasurements::controlW() {
    Latencies latencies;
    timeOf(KEY_LEFTCTRL, 1);
    for (std::size_t count = 0; count < m_keys; ++count) {
        for (const std::int32_t value : {1, 0}) {
            const auto begin = Clock::now();
            m_keyboard.send(KEY_W, value);
            const auto event = m_keyboard.next(patience);
            if (!event || event->value != value) {
                throw std::runtime_error("control-W is lost");
            }
            latencies.add(timeOfEvent(*event) - begin);
        }
    }
    timeOf(KEY_LEFTCTRL, 0);
    report("control-w", latencies);
}

// The first key goes out at once. Each one after a pause is due so long after the one before.
void KeyMeasurements::sequence(const char* name, std::uint16_t modifier, std::uint16_t key) {
    constexpr milliseconds pause{12};
    Latencies first;
    Latencies late;
    for (std::size_t count = 0; count < m_keys / 10; ++count) {
        timeOf(modifier, 1);
        // The keys before it are no part of it.
        std::this_thread::sleep_for(2 * pause);
        const auto begin = Clock::now();
        m_keyboard.send(key, 1);
        Microseconds beyond{0};
        auto last = begin;
        for (auto event = m_keyboard.next(patience); event; event = m_keyboard.next(2 * pause)) {
            const auto time = timeOfEvent(*event);
            if (last == begin) {
                first.add(time - begin);
            }
            const Microseconds gap = time - last;
            beyond += gap < pause / 2 ? gap : gap - Microseconds(pause);
            last = time;
        }
        if (last == begin) {
            throw std::runtime_error("a sequence is lost");
        }
        late.add(beyond);
        m_keyboard.send(key, 0);
        m_keyboard.send(modifier, 0);
        while (m_keyboard.next(2 * pause)) {
        }
    }
    std::printf("%s-first-p50 %.2f us\n", name, first.percentile(50).count());
    std::printf("%s-net-p50 %.2f us\n", name, late.percentile(50).count());
}

void KeyMeasurements::idleness() {
    constexpr seconds aWhile{60};
    const auto before = m_service.wakeUps();
    std::this_thread::sleep_for(aWhile);
    std::printf("idle-wake-ups %.2f /min\n", static_cast<double>(m_service.wakeUps() - before));
}

Latencies::Time KeyMeasurements::timeOf(std::uint16_t key, std::int32_t value) {
    const auto begin = Clock::now();
    m_keyboard.send(key, value);
    return expect(key, value) - begin;
}

void KeyMeasurements::burst(std::size_t size, Latencies& latencies) {
    std::vector<Clock::time_point> begins;
    for (std::size_t count = 0; count < 2 * size; ++count) {
        begins.push_back(Clock::now());
        m_keyboard.send(KEY_A, pressOrRelease(count));
    }
    for (std::size_t count = 0; count < begins.size(); ++count) {
        latencies.add(expect(KEY_A, pressOrRelease(count)) - begins.at(count));
    }
}

KeyMeasurements::Moment KeyMeasurements::expect(std::uint16_t key, std::int32_t value) {
    const auto event = m_keyboard.next(patience);
    if (!isEvent(event, key, value)) {
        throw std::runtime_error(event ? "keys come out of order" : "a key was lost");
    }
    return timeOfEvent(*event);
}

} // namespace pallistrom
