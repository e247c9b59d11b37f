// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "shell/state/AppState.h"

#include <QWidget>

#include <functional>

class QLayout;
class QPushButton;

namespace pallistrom {

/// All settings in one column of fixed width, which is always exactly as high as what it shows. The
/// window around it, and what its two actions do, are left to others.
class SettingsView final : public QWidget {
    Q_OBJECT

public:
    SettingsView(AppState& state,
                 std::function<void()> onReplayOnboarding,
                 std::function<void()> onQuit);

protected:
    bool event(QEvent* event) override;

private:
    [[nodiscard]] QWidget* makePermissionGroup();
    [[nodiscard]] QLayout* makeFooter();
    void readAgain();
    void fitHeight();

    AppState& m_state;
    std::function<void()> m_onReplayOnboarding;
    std::function<void()> m_onQuit;
    QString m_appVersion;
    QPushButton* m_open;
};

} // namespace pallistrom
