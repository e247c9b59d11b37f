// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ShortcutDef.h"
#include "platform/EventTap.h"
#include "platform/RunLoop.h"

#include <memory>
#include <span>
#include <vector>

namespace pallistrom {

/// Installs the keyboard filter, hooks it into the run loop and keeps it switched on. What the
/// filter does with a key is tapCallback()'s.
///
/// Main thread only. Destroying a controller neither switches the tap off nor takes it from the
/// loop.
class EventTapController {
public:
    /// Installs nothing yet. `shortcuts` are matched in their order.
    explicit EventTapController(std::span<const ShortcutDef> shortcuts);

    [[nodiscard]] std::span<const ShortcutDef> shortcuts() const { return m_shortcuts; }

    /// Creates the tap, or switches the existing one on again. Returns whether there is a tap and,
    /// for an existing one, whether it is on. Fails quietly while the process is not trusted.
    bool start();

    /// Returns whether there is a tap and it is switched on.
    [[nodiscard]] bool isActive() const;

    /// Switches an existing tap on.
    void reEnable();

    /// Leaves a running tap alone; otherwise starts it if the process is trusted now.
    void ensureRunning();

private:
    std::vector<ShortcutDef> m_shortcuts;
    CFMachPortRef m_port; ///< once set, never replaced
    CFRunLoopSourceRef m_runLoopSource;
};

/// The controller that tapCallback() serves; empty until launch. Set once, before the tap exists.
/// Shared, because the delegate that owns the controller publishes it here.
extern std::shared_ptr<EventTapController> tapController;

} // namespace pallistrom
