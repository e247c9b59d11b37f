// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/WaylandClient.h"

#include "platform/linux/SessionPaths.h"

#include <wayland-client-protocol.h>

namespace pallistrom {

namespace {

using std::chrono::steady_clock;

} // namespace

bool WaylandClient::isWaylandSession() {
    // The other variable hands one connection over, which is not ours to take.
    return !SessionPaths::variable("WAYLAND_DISPLAY").empty() &&
           SessionPaths::variable("WAYLAND_SOCKET").empty();
}

WaylandClient::WaylandClient(WaylandListener& listener) : m_listener(listener) {
    m_retry.setSingleShot(true);
    QObject::connect(&m_retry, &QTimer::timeout, &m_retry, [this] { open(); });
    open();
}

WaylandClient::~WaylandClient() = default;

void WaylandClient::giveUp() {
    m_hasGivenUp = true;
}

void WaylandClient::open() {
    m_hasGivenUp = false;
    if (isWaylandSession()) {
        m_display.reset(wl_display_connect(SessionPaths::variable("WAYLAND_DISPLAY").c_str()));
    }
    if (!m_display) {
        close();
        return;
    }
    m_since = steady_clock::now();
    static constexpr wl_registry_listener listener{.global = globalCame,
                                                   .global_remove = globalGone};
    wl_registry* const registry = wl_display_get_registry(m_display.get());
    m_registry.reset(reinterpret_cast<wl_proxy*>(registry));
    wl_registry_add_listener(registry, &listener, this);
    m_watch = watchDescriptor(wl_display_get_fd(m_display.get()), [this] { serve(); });
    wl_display_flush(m_display.get());
}

void WaylandClient::serve() {
    const bool isAlive = takeEvents();
    if (isAlive) {
        m_listener.served();
        wl_display_flush(m_display.get());
    }
    if (!isAlive || m_hasGivenUp) {
        m_listener.lost();
        close();
    }
}

// The descriptor is readable, so reading does not wait.
bool WaylandClient::takeEvents() {
    wl_display* const display = m_display.get();
    while (wl_display_prepare_read(display) != 0) {
        if (wl_display_dispatch_pending(display) < 0) {
            return false;
        }
    }
    return wl_display_read_events(display) == 0 && wl_display_dispatch_pending(display) >= 0;
}

void WaylandClient::close() {
    m_watch.reset();
    m_registry.reset();
    std::chrono::milliseconds held{0};
    if (m_display) {
        held = std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now() - m_since);
    }
    m_display.reset();
    m_retry.start(m_wait.after(held));
}

void WaylandClient::globalCame(void* self,
                               wl_registry* registry,
                               std::uint32_t name,
                               const char* interface,
                               std::uint32_t version) {
    static_cast<WaylandClient*>(self)->m_listener.globalCame(registry, {name, interface, version});
}

void WaylandClient::globalGone(void* self, wl_registry* /*registry*/, std::uint32_t name) {
    static_cast<WaylandClient*>(self)->m_listener.globalGone(name);
}

} // namespace pallistrom
