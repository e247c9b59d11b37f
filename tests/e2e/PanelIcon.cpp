// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "PanelIcon.h"

#include "Deadline.h"
#include "Panel.h"

#include <chrono>

namespace pallistrom::e2e {

namespace {

constexpr int left = 1;
constexpr int right = 3;
constexpr int iconMiddle = 12;

/// Where the icon is, and where its menu opens.
constexpr Area iconArea{.x = 0, .y = 0, .width = 40, .height = Panel::height};
constexpr Area menuArea{.x = 4, .y = 30, .width = 150, .height = 100};

} // namespace

bool PanelIcon::isShown() const {
    return waitUntil([&] { return m_screen.brightPixels(iconArea) > 20; });
}

bool PanelIcon::isGone() const {
    return waitUntil([&] { return m_screen.brightPixels(iconArea) == 0; });
}

bool PanelIcon::menuIsShown() const {
    return waitUntil([&] { return m_screen.brightPixels(menuArea) > 100; });
}

bool PanelIcon::menuIsGone() const {
    return waitUntil([&] { return m_screen.brightPixels(menuArea) == 0; });
}

void PanelIcon::clickLeft() const {
    m_screen.click(iconMiddle, Panel::height / 2, left);
}

bool PanelIcon::openMenu() const {
    m_screen.click(iconMiddle, Panel::height / 2, right);
    return menuIsShown();
}

bool PanelIcon::choose(int item) const {
    const bool isOpen = openMenu();
    for (int step = 0; step < item; ++step) {
        m_keys.press("Down");
    }
    m_keys.press("Return");
    return isOpen && menuIsGone();
}

} // namespace pallistrom::e2e
