// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "SessionBus.h"

namespace pallistrom::e2e {

/// A real panel at the top of a display, with a tray and nothing else. It is dark.
class Panel {
public:
    enum class Tray {
        StatusNotifier, ///< which draws the icons and menus of others
        XEmbed,         ///< of the old kind, in which others draw themselves
    };

    static constexpr int height = 24;

    explicit Panel(const SessionBus& bus, Tray tray = Tray::StatusNotifier);
    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;

    /// Ends the panel, and waits until it has left the bus and the display.
    ~Panel();

private:
    ChildProcess m_process;
};

} // namespace pallistrom::e2e
