// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

namespace pallistrom {

/// A button of the update window. The one that Return presses is filled with the accent colour; the
/// one that was reached with the keyboard has a ring around it, for which it keeps some room.
class ActionButton final : public QPushButton {
public:
    ActionButton(const QString& title, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    /// How much wider it is than it looks, on each side.
    static constexpr int ringRoom = 3;

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool m_showsRing = false;
};

} // namespace pallistrom
