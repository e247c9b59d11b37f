// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Latencies.h"
#include "MeasuredService.h"
#include "TestKeyboard.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

// How long keys take from a keyboard, through a program that grabs it, to the one that this program
// makes; how much of the processor they take, and how much memory the program.
//
//     key_latency [--keys N] -- PROGRAM [ARGUMENT...]
//
// An argument "{}" stands for the keyboard's event node. Prints one figure a line.

using namespace pallistrom;

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds patience{5'000};

class Measuring {
public:
    Measuring(TestKeyboard& keyboard, MeasuredService& service, std::size_t keys)
        : m_keyboard(keyboard), m_service(service), m_keys(keys) {}

    // Types until a key comes out: until then the program has not grabbed the keyboard.
    void warmUp() {
        for (int tries = 0; tries < 100; ++tries) {
            m_keyboard.send(KEY_A, 1);
            const bool wentDown = m_keyboard.next(std::chrono::milliseconds(100)).has_value();
            m_keyboard.send(KEY_A, 0);
            if (m_keyboard.next(std::chrono::milliseconds(100)) && wentDown) {
                return;
            }
        }
        throw std::runtime_error("no key comes out");
    }

    void plainKeys() {
        Latencies latencies;
        const auto before = m_service.processorTime();
        for (std::size_t count = 0; count < m_keys; ++count) {
            latencies.add(timeOf(KEY_A, 1));
            latencies.add(timeOf(KEY_A, 0));
        }
        const std::chrono::duration<double, std::micro> used = m_service.processorTime() - before;
        report("plain", latencies);
        std::printf("processor-per-key %.2f us\n", used.count() / static_cast<double>(2 * m_keys));
    }

    void bursts() {
        constexpr std::size_t inOneBurst = 8;
        Latencies latencies;
        for (std::size_t count = 0; count < m_keys / inOneBurst; ++count) {
            burst(inOneBurst, latencies);
        }
        report("burst", latencies);
    }

    void controlW() {
        Latencies latencies;
        timeOf(KEY_LEFTCTRL, 1);
        for (std::size_t count = 0; count < m_keys; ++count) {
            latencies.add(timeOf(KEY_W, 1));
            latencies.add(timeOf(KEY_W, 0));
        }
        timeOf(KEY_LEFTCTRL, 0);
        report("control-w", latencies);
    }

private:
    Latencies::Time timeOf(std::uint16_t key, std::int32_t value) {
        const auto begin = Clock::now();
        m_keyboard.send(key, value);
        expect(value);
        return Clock::now() - begin;
    }

    void burst(std::size_t size, Latencies& latencies) {
        std::vector<Clock::time_point> begins;
        for (std::size_t count = 0; count < 2 * size; ++count) {
            begins.push_back(Clock::now());
            m_keyboard.send(KEY_A, pressOrRelease(count));
        }
        for (std::size_t count = 0; count < begins.size(); ++count) {
            expect(pressOrRelease(count));
            latencies.add(Clock::now() - begins.at(count));
        }
    }

    static std::int32_t pressOrRelease(std::size_t count) { return count % 2 == 0 ? 1 : 0; }

    void expect(std::int32_t value) {
        const auto event = m_keyboard.next(patience);
        if (!event || event->value != value) {
            throw std::runtime_error(event ? "keys come out of order" : "a key was lost");
        }
    }

    static void report(const char* what, const Latencies& latencies) {
        std::printf("%s-p50 %.2f us\n", what, latencies.percentile(50).count());
        std::printf("%s-p99 %.2f us\n", what, latencies.percentile(99).count());
    }

    TestKeyboard& m_keyboard;
    MeasuredService& m_service;
    std::size_t m_keys;
};

struct Request {
    std::size_t keys = 2'000;
    std::vector<std::string> command;
};

Request requestFrom(std::vector<std::string> arguments) {
    Request request;
    const auto dashes = std::find(arguments.begin(), arguments.end(), "--");
    if (dashes == arguments.end() || dashes + 1 == arguments.end()) {
        throw std::runtime_error("usage: key_latency [--keys N] -- PROGRAM [ARGUMENT...]");
    }
    if (dashes - arguments.begin() == 2 && arguments.front() == "--keys") {
        request.keys = std::stoul(arguments.at(1));
    }
    request.command.assign(dashes + 1, arguments.end());
    return request;
}

void measure(Request request) {
    TestKeyboard keyboard;
    std::replace(
        request.command.begin(), request.command.end(), std::string("{}"), keyboard.path());
    MeasuredService service(request.command);
    if (!keyboard.findOutput(std::chrono::seconds(30))) {
        throw std::runtime_error("no keyboard comes out");
    }
    Measuring measuring(keyboard, service, request.keys);
    measuring.warmUp();
    measuring.plainKeys();
    measuring.bursts();
    measuring.controlW();
    std::printf("resident %.2f MiB\n", service.residentMebibytes());
}

} // namespace

int main(int argc, char** argv) {
    try {
        measure(requestFrom({argv + 1, argv + argc}));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "key_latency: %s\n", error.what());
        return 1;
    }
    return 0;
}
