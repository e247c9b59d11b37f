// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/DescriptorWatch.h"
#include "platform/linux/wayland/RetryWait.h"
#include "platform/linux/wayland/WaylandListener.h"
#include "platform/linux/wayland/WaylandProxy.h"

#include <QTimer>

#include <chrono>
#include <memory>
#include <string>

namespace pallistrom {

/// A connection of our own to the session's compositor, without a window, so that it never sees a
/// key. One that breaks is opened again, after a wait that grows (see RetryWait).
/// Nothing here ever waits for the compositor.
class WaylandClient {
public:
    /// Returns whether this is a Wayland session.
    [[nodiscard]] static bool isWaylandSession();

    /// `listener` outlives the client, and is not called from within this function.
    explicit WaylandClient(WaylandListener& listener);
    WaylandClient(const WaylandClient&) = delete;
    WaylandClient& operator=(const WaylandClient&) = delete;

    /// The listener's objects must have gone.
    ~WaylandClient();

    /// Breaks the connection off, once the call that led here has returned, to begin anew.
    void giveUp();

private:
    struct Disconnect {
        void operator()(wl_display* display) const noexcept { wl_display_disconnect(display); }
    };

    static void globalCame(void* self,
                           wl_registry* registry,
                           std::uint32_t name,
                           const char* interface,
                           std::uint32_t version);
    static void globalGone(void* self, wl_registry* registry, std::uint32_t name);

    void open();
    void serve();
    [[nodiscard]] bool takeEvents();
    void close();

    WaylandListener& m_listener;
    std::unique_ptr<wl_display, Disconnect> m_display;
    WaylandProxy m_registry;
    std::unique_ptr<DescriptorWatch> m_watch;
    QTimer m_retry;
    RetryWait m_wait;
    std::chrono::steady_clock::time_point m_since; ///< when the display was connected
    bool m_hasGivenUp = false;
};

} // namespace pallistrom
