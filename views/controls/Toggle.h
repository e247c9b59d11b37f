// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "shell/state/Binding.h"

#include <QWidget>

#include <cstdint>

namespace pallistrom {

class Switch;

/// A label with a switch behind it. Shows what its binding says, never what was merely clicked. A
/// click on the label is one on the switch.
class Toggle : public QWidget {
    Q_OBJECT

public:
    enum class Width : std::uint8_t {
        Fitting, ///< the switch follows the label
        Filling, ///< the switch is at the far edge
    };

    /// `name` and `description` are what assistive technology calls the switch.
    Toggle(QWidget* label, const QString& name, Binding binding, Width width);

    /// Reads the binding again.
    void readAgain();

    [[nodiscard]] Switch& control() { return *m_switch; }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void write(bool isOn);

    Binding m_binding;
    Switch* m_switch;
};

} // namespace pallistrom
