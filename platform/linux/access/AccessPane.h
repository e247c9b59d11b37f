// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/Obstacle.h"

#include <QDialog>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

class QDialogButtonBox;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace pallistrom {

class GnomeExtension;
class GrantSwitch;
class KeyboardService;
class StatusDot;

/// The window where a person lets the keyboard service filter keys, or takes that back. It says
/// whether Pallistrom can filter keys in this session, and what is in the way if not.
///
/// Whoever opens it wants keys to be filtered: that ends a panic. What nobody signals is looked at
/// again every 1.5 seconds while the window is on screen.
class AccessPane final : public QDialog {
    Q_OBJECT

public:
    /// What the pane asks again and again. Called on the main thread.
    struct Questions {
        /// What keeps keys from being filtered here, if anything.
        std::function<std::optional<Obstacle>()> findObstacle;
        /// Whether terminals can be told from other applications.
        std::function<bool()> knowsWhoIsInFront = [] {
            return true;
        };
    };

    /// `service` outlives the pane.
    AccessPane(KeyboardService& service, Questions questions);
    AccessPane(const AccessPane&) = delete;
    AccessPane& operator=(const AccessPane&) = delete;
    ~AccessPane() override;

    /// Opens the one pane of this session's keys, or brings it to the front.
    static void present();

    /// Returns whether it looks again from time to time.
    [[nodiscard]] bool isLooking() const { return m_timer.isActive(); }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void addApplication(QVBoxLayout& column);
    void addStatus(QVBoxLayout& column);
    void addButtons(QVBoxLayout& column);
    void opened();
    void clicked();
    void look();
    void advise();

    KeyboardService& m_service;
    Questions m_questions;
    GrantSwitch* m_switch; ///< these belong to the window, as its children
    StatusDot* m_dot;
    QLabel* m_headline;
    QLabel* m_explanation;
    QLabel* m_advice;
    QPushButton* m_switchOnExtension;
    std::unique_ptr<GnomeExtension> m_extension; ///< once it could be of help
    QTimer m_timer;
};

} // namespace pallistrom
