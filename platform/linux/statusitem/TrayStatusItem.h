// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StatusItem.h"
#include "platform/linux/statusitem/StatusMenu.h"
#include "platform/linux/statusitem/TrayWatch.h"

#include <QObject>
#include <QSystemTrayIcon>

#include <memory>
#include <optional>
#include <string>

namespace pallistrom {

/// A status item in the tray of the desktop's panel, once there is one. The panel is told only what
/// changes. Where the user asked for the program and there is no tray to be seen, the program shows
/// itself as if it had been started a second time.
class TrayStatusItem final : public NSStatusItem, private NSStatusBarButton {
public:
    TrayStatusItem();

    NSStatusBarButton* button() override { return this; }

    void setMenu(NSMenu menu) override;

private:
    void setToolTip(std::string_view text) override;
    void setImage(const std::optional<NSImage>& image) override;

    void trayFound();
    void release();

    QObject m_context; ///< ends the connections that lead here
    std::string m_toolTip;
    std::optional<NSImage> m_image;
    // Empty at the end of the program, when Qt goes before its status items do.
    std::unique_ptr<StatusMenu> m_menu;
    std::unique_ptr<TrayWatch> m_watch;
    std::unique_ptr<QSystemTrayIcon> m_icon; ///< once there is a tray
};

} // namespace pallistrom
