// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Environment.h"
#include "HardwareKeys.h"
#include "KeyScript.h"
#include "KeyboardStage.h"
#include "Seat.h"
#include "ServiceOnBus.h"
#include "WaylandSession.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <future>
#include <iostream>
#include <optional>
#include <random>
#include <string>
#include <thread>

namespace pallistrom::vm {

namespace {

class DesktopFaults : public testing::Test {
protected:
    DesktopFaults() {
        KeyboardStage::clear();
        m_service.emplace();
        m_service->startDesktop();
    }

    [[nodiscard]] ServiceOnBus& service() { return *m_service; }

    [[nodiscard]] Seat& seat() { return m_seat; }

    [[nodiscard]] bool isFiltered() {
        return waitUntil([this] { return shownBy(m_seat, "key ctrl+w", 4) == shortcut; },
                         WaylandSession::patience());
    }

    // Types a line of letters over and over. Returns how often, once `isTyping` is false.
    static std::size_t type(const std::string& line, const std::atomic<bool>& isTyping) {
        std::size_t lines = 0;
        for (; isTyping; ++lines) {
            useHardware({"type " + line});
        }
        return lines;
    }

    // Waits a while that is another one each time.
    void waitForAMoment() {
        std::uniform_int_distribution<int> microseconds{0, 400'000};
        std::this_thread::sleep_for(std::chrono::microseconds{microseconds(m_random)});
    }

    void killDesktop() {
        service().desktop().signal(SIGKILL);
        service().startDesktop();
    }

    void stopDesktopForAWhile() {
        service().desktop().signal(SIGSTOP);
        waitForAMoment();
        service().desktop().signal(SIGCONT);
    }

private:
    static constexpr const char* shortcut = "+ctrl +bs -bs -ctrl";

    std::optional<ServiceOnBus> m_service;
    Seat m_seat{hardwareKeyboard};
    std::mt19937 m_random; // The same moments each time.
};

std::string keysOfLines(const std::string& line, std::size_t count) {
    std::string keys;
    for (std::size_t i = 0; i < count; ++i) {
        for (const char letter : line) {
            keys += std::string{keys.empty() ? "" : " "} + '+' + letter + " -" + letter;
        }
    }
    return keys;
}

// No key goes by way of the desktop program, so whatever becomes of it costs none.
TEST_F(DesktopFaults, loseNoKeyAtAnyMoment) {
    const std::uint64_t faults = Environment::number("PALLISTROM_KILLS", 200);
    const std::string line = "axdukwkudxa";
    ASSERT_TRUE(isFiltered());
    seat().clear();

    std::atomic<bool> isTyping = true;
    auto typist = std::async(std::launch::async, [&] { return type(line, isTyping); });
    for (std::uint64_t time = 0; time < faults; ++time) {
        waitForAMoment();
        if (time % 2 == 0) {
            killDesktop();
        } else {
            stopDesktopForAWhile();
        }
    }
    isTyping = false;
    const std::size_t lines = typist.get();

    const std::size_t events = lines * line.size() * 2;
    const auto seen = keysOf(
        seat().waitFor([events](const Seat::Events& all) { return keysOf(all).size() >= events; },
                       WaylandSession::patience()));
    ASSERT_FALSE(seat().hasMissedSome());
    EXPECT_EQ(KeyScript::print(seen), keysOfLines(line, lines));
    EXPECT_EQ(seat().keysDown(), "");
    EXPECT_TRUE(isFiltered());
    std::cout << faults << " faults, " << lines * line.size() << " keys typed\n";
}

} // namespace

} // namespace pallistrom::vm
