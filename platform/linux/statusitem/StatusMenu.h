// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Menu.h"
#include "platform/linux/statusitem/MenuDifference.h"

#include <QAction>
#include <QMenu>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace pallistrom {

/// The menu of a status item, shown by a panel or by Qt. It follows the value that it is given,
/// changing only what differs, and nothing under the pointer: while it is open, the last value
/// waits until it closes.
class StatusMenu final : public QObject {
public:
    /// `choose` is told of each item that somebody chooses.
    explicit StatusMenu(std::function<void(const NSMenuItem&)> choose);

    void show(NSMenu menu);

    /// For whoever draws it.
    [[nodiscard]] QMenu& menu() { return m_menu; }

protected:
    /// The key equivalents act while the menu is open. Qt itself knows those of menus in a menu bar
    /// only.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void opened();
    void close();
    void apply(NSMenu menu);
    void apply(const MenuStep& step);
    void chosen(const QAction& action);

    std::function<void(const NSMenuItem&)> m_choose;
    QMenu m_menu;
    std::vector<std::unique_ptr<QAction>> m_actions; ///< one for each item of `m_shown`
    NSMenu m_shown;
    std::optional<NSMenu> m_next;   ///< for when the menu closes
    QTimer m_openness;              ///< runs while the menu is open, as far as is known
    bool m_isToldOfClosing = false; ///< whether this panel says when it closes the menu
};

} // namespace pallistrom
