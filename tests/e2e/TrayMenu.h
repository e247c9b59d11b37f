// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "SessionBus.h"

#include <optional>
#include <string>
#include <vector>

namespace pallistrom::e2e {

/// The menu of the only status item of a session, as panels get it over the bus.
class TrayMenu {
public:
    struct Item {
        std::string label; ///< "-" for a line between items
        bool isChecked = false;
        bool isEnabled = true;
        std::string id; ///< as the bus knows it
    };

    explicit TrayMenu(const SessionBus& bus) : m_bus{bus} {}

    /// What is visible of it; empty while there is no status item.
    std::vector<Item> items() const;

    /// The labels of these.
    std::vector<std::string> labels() const;

    std::optional<Item> find(const std::string& label) const;

    /// Chooses an item. Returns whether it is there and the program has heard of it.
    [[nodiscard]] bool choose(const std::string& label) const;

private:
    /// On the bus; empty if there is none.
    std::string owner() const;

    const SessionBus& m_bus;
};

} // namespace pallistrom::e2e
