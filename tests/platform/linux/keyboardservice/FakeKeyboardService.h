// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keyboardservice/KeyboardService.h"

#include <string>
#include <utility>
#include <vector>

namespace pallistrom {

/// A keyboard service without a bus: what it says is set by hand, what it is told is written down.
class FakeKeyboardService final : public KeyboardService {
public:
    // --- What it says.

    void say(std::optional<Obstacle> obstacle) {
        m_obstacle = obstacle;
        Q_EMIT changed();
    }

    void close(std::optional<KeyboardInterface::GrantAnswer> answer) {
        m_request = {.isOpen = false, .answer = answer};
        Q_EMIT changed();
    }

    // --- What it was told, in order.

    /// Returns all of it since the last time.
    std::vector<std::string> take() { return std::exchange(m_told, {}); }

    std::optional<Obstacle> obstacle() override { return m_obstacle; }

    [[nodiscard]] Request request() const override { return m_request; }

    void lookAgain() override { m_told.emplace_back("lookAgain"); }

    void requestGrant() override {
        m_told.emplace_back("requestGrant");
        m_request = {.isOpen = true, .answer = {}};
        Q_EMIT changed();
    }

    void withdrawGrant() override { m_told.emplace_back("withdrawGrant"); }

    void endPanic() override { m_told.emplace_back("endPanic"); }

    void setTap(bool on) override { m_told.emplace_back(on ? "tap on" : "tap off"); }

    void setSwitches(std::uint32_t switches) override {
        m_told.emplace_back("switches " + std::to_string(switches));
    }

    void setModifiers(const ModifierTable& modifiers) override {
        const auto control = modifiers.keyFor(Modifier::Control);
        m_told.emplace_back("control is key " + std::to_string(control.value_or(0)));
    }

    void setFrontApplication(FrontApplication application) override {
        m_told.emplace_back("front " + std::to_string(static_cast<int>(application)));
    }

private:
    std::optional<Obstacle> m_obstacle = Obstacle::NotGranted;
    Request m_request;
    std::vector<std::string> m_told;
};

} // namespace pallistrom
