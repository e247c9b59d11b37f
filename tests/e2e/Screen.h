// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "XConnection.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace pallistrom::e2e {

/// A part of the screen, in pixels.
struct Area {
    std::int16_t x = 0;
    std::int16_t y = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
};

/// What can be seen on a display, and a mouse for it.
class Screen {
public:
    explicit Screen(const std::string& display);

    /// How many pixels of an area are brighter than half.
    int brightPixels(Area area) const;

    /// Whether a window that is mapped has this title.
    bool hasWindow(const std::string& title) const;

    /// Asks the window manager to close that window, as its close button does.
    void closeWindow(const std::string& title) const;

    /// Asks it to give that window the keyboard, as a click in a list of windows does.
    void bringToFront(const std::string& title) const;

    /// Moves the mouse there and clicks: 1 is left, 3 is right.
    void click(int x, int y, int button) const;

private:
    void ask(std::string_view request, const std::string& title) const;
    xcb_window_t findWindow(const std::string& title) const;

    std::string m_display;
    XConnection m_connection;
};

} // namespace pallistrom::e2e
