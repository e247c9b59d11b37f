// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>

#include <xcb/xcb.h>

#include <functional>

namespace pallistrom {

/// Whether the X server has a tray of the old kind, into which programs put windows; and when one
/// comes. Where Qt does not run on X11, none ever does.
class XEmbedTray final : private QAbstractNativeEventFilter {
public:
    /// Watches from now on, and tells `changed` that one may have come.
    explicit XEmbedTray(std::function<void()> changed);
    XEmbedTray(const XEmbedTray&) = delete;
    XEmbedTray& operator=(const XEmbedTray&) = delete;
    ~XEmbedTray() override;

    /// Asks the server.
    [[nodiscard]] bool isThere() const;

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    std::function<void()> m_changed;
    xcb_atom_t m_selection = XCB_ATOM_NONE; ///< whose owner is the tray
    xcb_atom_t m_manager = XCB_ATOM_NONE;   ///< the message of a new owner
};

} // namespace pallistrom
