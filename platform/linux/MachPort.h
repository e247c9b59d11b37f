// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventTap.h"
#include "platform/linux/DescriptorWatch.h"
#include "platform/linux/KeyFilter.h"
#include "platform/linux/TapWay.h"

#include <memory>
#include <span>
#include <vector>

namespace pallistrom {

/// The port of an event tap on Linux: one object for the life of the program, whichever way its
/// keys come. The way is chosen anew each time the tap is switched on: the first of `ways` that can
/// run. Once a better one than that can run, the tap counts as off, so that whoever keeps it on
/// switches it on anew.
class CFMachPort {
public:
    /// `ways` outlive the port.
    CFMachPort(KeyFilter filter, std::span<TapWay* const> ways);
    CFMachPort(const CFMachPort&) = delete;
    CFMachPort& operator=(const CFMachPort&) = delete;
    ~CFMachPort();

    /// Switches the tap on or off. A tap that is on and works is left alone. No two ways ever run
    /// at a time.
    void setEnabled(bool enabled);

    /// Returns whether the tap is on and its way to the keys works and is still the best.
    [[nodiscard]] bool isEnabled() const;

    /// From now on the calling thread's run loop serves the port.
    void serveOnRunLoop();

private:
    [[nodiscard]] bool isRunning() const { return m_way != nullptr && m_way->isRunning(); }

    [[nodiscard]] bool isBestWay() const;
    void start();
    void watchWay();
    void serveWay();

    KeyFilter m_filter;
    std::span<TapWay* const> m_ways;
    TapWay* m_way = nullptr;           ///< the one in use, if the tap is on
    std::vector<TapWay*> m_betterWays; ///< those that could not run when it was chosen
    bool m_isServed = false;
    std::unique_ptr<DescriptorWatch> m_watch;
};

} // namespace pallistrom
