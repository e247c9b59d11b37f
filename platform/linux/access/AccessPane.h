// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/Obstacle.h"

#include <QDialog>
#include <QTimer>

#include <functional>
#include <optional>

class QLabel;

namespace pallistrom {

class StatusDot;

/// The window that says whether Pallistrom can filter keys here, and what is in the way if not.
/// Looks again every 1.5 seconds while it is on screen.
class AccessPane final : public QDialog {
public:
    /// `findObstacle` tells what is in the way, if anything. Called on the main thread.
    explicit AccessPane(std::function<std::optional<Obstacle>()> findObstacle);

    /// Opens the one pane of this session's keys, or brings it to the front.
    static void present();

    /// Returns whether it looks again from time to time.
    [[nodiscard]] bool isLooking() const { return m_timer.isActive(); }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void look();

    std::function<std::optional<Obstacle>()> m_findObstacle;
    StatusDot* m_dot; ///< the three belong to the window, as its children
    QLabel* m_headline;
    QLabel* m_explanation;
    QTimer m_timer;
};

} // namespace pallistrom
