// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/OwnedDescriptor.h"
#include "platform/linux/update/UpdateClock.h"

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace pallistrom {

/// The computer's clock. Costs nothing while it waits.
class SystemUpdateClock final : public UpdateClock {
public:
    SystemUpdateClock() = default;
    ~SystemUpdateClock() override = default;
    SystemUpdateClock(const SystemUpdateClock&) = delete;
    SystemUpdateClock& operator=(const SystemUpdateClock&) = delete;

    [[nodiscard]] std::int64_t now() const override;
    void wakeIn(std::chrono::seconds wait, std::function<void()> action) override;
    void stop() override;

private:
    void ring();

    std::function<void()> m_action;
    OwnedDescriptor m_timer;                     ///< made by the first wakeIn()
    std::unique_ptr<QSocketNotifier> m_notifier; ///< goes before what it listens to
};

} // namespace pallistrom
