// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/BusConnection.h"

#include <array>
#include <functional>
#include <memory>
#include <string>

namespace pallistrom {

/// Whether programs of the session tell assistive technology what they show, and on which bus. It
/// is never switched on from here, which would change every program, nor is anything started to be
/// asked: where nobody uses it, there is nobody to ask. Main thread only.
class AccessibilityStatus {
public:
    /// `whenChanged` is called from the run loop when address() has become another.
    explicit AccessibilityStatus(std::function<void()> whenChanged);

    /// Where programs tell it; empty while they do not.
    [[nodiscard]] const std::string& address() const { return m_address; }

    /// Returns whether there has been an answer yet, or nobody to give one.
    [[nodiscard]] bool isKnown() const { return m_isKnown; }

private:
    void busIsReady();
    void ask();
    void hearOwner(sd_bus_message* signal);
    void hearIsEnabled(sd_bus_message* answer);
    void hearAddress(sd_bus_message* answer);
    void setAddress(const std::string& address);

    std::function<void()> m_whenChanged;
    std::string m_address;
    bool m_isKnown = false;
    std::unique_ptr<BusConnection> m_bus; ///< of the session
    std::array<BusSlot, 2> m_matches;
    BusSlot m_question; ///< the one that is open
};

} // namespace pallistrom
