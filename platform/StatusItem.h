// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"
#include "platform/Menu.h"

#include <memory>
#include <optional>
#include <string_view>

namespace pallistrom {

/// As wide as what it shows. Value: AppKit, NSStatusBar.h.
inline constexpr double NSVariableStatusItemLength = -1.0;

/// What of a status item can be seen all the time.
class NSStatusBarButton {
public:
    NSStatusBarButton() = default;
    NSStatusBarButton(const NSStatusBarButton&) = delete;
    NSStatusBarButton& operator=(const NSStatusBarButton&) = delete;
    virtual ~NSStatusBarButton() = default;

    virtual void setToolTip(std::string_view text) = 0;

    /// No image leaves the button empty.
    virtual void setImage(const std::optional<NSImage>& image) = 0;
};

/// A place in the desktop's status bar, with a menu. Where the desktop has no such bar (yet), it
/// keeps what it is given until there is one.
class NSStatusItem {
public:
    NSStatusItem() = default;
    NSStatusItem(const NSStatusItem&) = delete;
    NSStatusItem& operator=(const NSStatusItem&) = delete;
    virtual ~NSStatusItem() = default;

    /// Returns the item's button, if it has one. Owned by the item.
    [[nodiscard]] virtual NSStatusBarButton* button() = 0;

    /// Shows `menu` from the next time on that it is opened.
    virtual void setMenu(NSMenu menu) = 0;
};

/// Shared, because the platform counts references to it.
using NSStatusItemRef = std::shared_ptr<NSStatusItem>;

/// Returns a new item of the system's status bar; none if it gives none.
NSStatusItemRef statusItemWithLength(double length);

} // namespace pallistrom
