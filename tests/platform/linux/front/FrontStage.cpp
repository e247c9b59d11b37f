// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FrontStage.h"

namespace pallistrom {

namespace {

CGEventRef
drop(CGEventTapProxy /*proxy*/, CGEventType /*type*/, CGEventRef /*event*/, void* /*info*/) {
    return nullptr;
}

} // namespace

FrontStage::FrontStage()
    : m_compositor(m_folder.path() / "wayland"), m_filter(drop, nullptr, m_keys) {
    Environment::unset("DISPLAY");
    Environment::unset("WAYLAND_SOCKET");
    Environment::set("WAYLAND_DISPLAY", m_folder.path() / "wayland");
    Environment::set("XDG_CONFIG_HOME", m_folder.path());
    // Desktops that speak on the session's bus are listened to as well.
    Environment::set("DBUS_SESSION_BUS_ADDRESS", Environment::value("DBUS_SYSTEM_BUS_ADDRESS"));
    m_compositor.offerWlrToplevels();
    m_compositor.offerSeat();
    terminal = m_compositor.open("foot");
    editor = m_compositor.open("editor");
    otherEditor = m_compositor.open("other-editor");
    m_front = terminal;
    m_compositor.setActivated(terminal, true);
}

FrontStage::~FrontStage() {
    m_tap.stop();
    Environment::unset("WAYLAND_DISPLAY");
}

void FrontStage::bringToFront(std::size_t window) {
    m_compositor.setActivated(m_front, false);
    m_compositor.setActivated(window, true);
    m_front = window;
}

} // namespace pallistrom
