// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Keys.h"
#include "Screen.h"

#include <string>

namespace pallistrom::e2e {

/// The only icon in a Panel, and the menu under it, for somebody with a mouse and a keyboard.
class PanelIcon {
public:
    explicit PanelIcon(const std::string& display) : m_screen{display}, m_keys{display} {}

    /// Wait until it is there or gone. Return whether that came to pass in time.
    [[nodiscard]] bool isShown() const;
    [[nodiscard]] bool isGone() const;

    /// The same for its menu.
    [[nodiscard]] bool menuIsShown() const;
    [[nodiscard]] bool menuIsGone() const;

    void clickLeft() const;

    /// Opens the menu. Returns whether that works.
    [[nodiscard]] bool openMenu() const;

    /// Opens the menu, goes down to an item, the first being 1, and chooses it. Disabled ones do
    /// not count. Returns whether the menu came and went.
    [[nodiscard]] bool choose(int item) const;

private:
    Screen m_screen;
    Keys m_keys;
};

} // namespace pallistrom::e2e
