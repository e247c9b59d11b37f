// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/BusConnection.h"
#include "platform/linux/front/AccessibilityStatus.h"
#include "platform/linux/front/FrontSource.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace pallistrom {

/// The window in front by what programs tell assistive technology, in a session where that is on
/// for somebody else. Programs that tell nothing are unknown, and so is every one until it has come
/// to the front once. Each speaks for itself only: one that lies changes what becomes of its own
/// keys.
class AccessibilityFrontSource final : public FrontSource {
public:
    explicit AccessibilityFrontSource(std::function<void()> whenChanged);

    [[nodiscard]] FrontReport report() const override { return m_report; }

    /// It listens only where no better source can tell: who listens makes programs tell.
    void setWanted(Wanted wanted) override;

    /// Returns whether it has found out if accessibility is on.
    [[nodiscard]] bool hasLooked() const { return m_status && m_status->isKnown(); }

    /// Returns whether programs have been asked to tell.
    [[nodiscard]] bool isListening() const { return m_bus && m_bus->isReady(); }

private:
    void follow();
    void end();
    void busIsReady();
    void hearActivate(sd_bus_message* signal);
    void hearDeactivate(sd_bus_message* signal);
    void hearFocus(sd_bus_message* signal);
    void hearEnd(sd_bus_message* signal);
    void hearName(sd_bus_message* answer);
    void hearProcess(sd_bus_message* answer);
    void hearRole(sd_bus_message* answer);

    void bringToFront(const std::string& program);
    void setReport(const FrontReport& report);

    std::function<void()> m_whenChanged;
    FrontReport m_report;
    FrontReport m_found;   ///< as far as the questions are answered
    std::string m_program; ///< the one in front, by the name of its connection
    std::optional<AccessibilityStatus> m_status; ///< while it is wanted
    std::unique_ptr<BusConnection> m_bus;        ///< of accessibility, while that is on
    std::array<BusSlot, 3> m_registrations;      ///< what came of them is not looked at
    std::array<BusSlot, 3> m_matches;
    BusSlot m_endMatch;     ///< of the program in front
    BusSlot m_nameQuestion; ///< or that of its process
    BusSlot m_roleQuestion;
};

} // namespace pallistrom
