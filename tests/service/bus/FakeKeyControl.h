// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/KeyControl.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom {

/// Keyboards that do as they are told, and write it down.
class FakeKeyControl final : public KeyControl {
public:
    void setObserver(Observer* observer) override { m_observer = observer; }

    void prepare() override { calls.emplace_back("prepare"); }

    void setAllowed(bool allowed) override {
        calls.emplace_back(allowed ? "allow" : "forbid");
        isAllowed = allowed;
        if (const auto& tell = isAllowed ? whenAllowed : whenForbidden) {
            tell();
        }
        if (isAllowed != m_isGrabbing) {
            m_isGrabbing = isAllowed;
            m_observer->keyboardsChanged();
        }
    }

    void setModifierTable(const ModifierTable& newTable) override { table = newTable; }

    void setFrontApplication(FrontApplication kind) override { front = kind; }

    void aboutToSleep() override { calls.emplace_back("sleep"); }

    void awake() override { calls.emplace_back("awake"); }

    [[nodiscard]] bool isGrabbing() const override { return m_isGrabbing; }

    [[nodiscard]] bool canMakeKeyboards() const override { return m_canMakeKeyboards; }

    /// Somebody presses the panic chord.
    void panic() {
        m_isGrabbing = false;
        m_observer->panicked();
    }

    void setCanMakeKeyboards(bool can) {
        m_canMakeKeyboards = can;
        m_observer->keyboardsChanged();
    }

    std::vector<std::string> calls;
    bool isAllowed = false;
    std::optional<ModifierTable> table;
    std::optional<FrontApplication> front;
    std::function<void()> whenAllowed;
    std::function<void()> whenForbidden;

private:
    Observer* m_observer = nullptr;
    bool m_isGrabbing = false;
    bool m_canMakeKeyboards = true;
};

} // namespace pallistrom
