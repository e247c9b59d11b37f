// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FakeUpdateClock.h"

#include <utility>

namespace pallistrom {

class FakeUpdateClock::Clock final : public UpdateClock {
public:
    explicit Clock(FakeUpdateClock& time) : m_time(time) {}

    ~Clock() override { Clock::stop(); }

    [[nodiscard]] std::int64_t now() const override { return m_time.now; }

    void wakeIn(std::chrono::seconds wait, std::function<void()> action) override {
        m_time.alarm = wait;
        m_time.m_action = std::move(action);
    }

    void stop() override {
        m_time.alarm.reset();
        m_time.m_action = nullptr;
    }

private:
    FakeUpdateClock& m_time;
};

std::unique_ptr<UpdateClock> FakeUpdateClock::makeClock() {
    return std::make_unique<Clock>(*this);
}

void FakeUpdateClock::ring() {
    now += alarm.value().count();
    alarm.reset();
    std::exchange(m_action, nullptr)();
}

} // namespace pallistrom
