// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCheckBox>

namespace pallistrom {

/// A check box that can be seen on a dark ground without a tick, where styles draw hardly anything.
class TickBox final : public QCheckBox {
public:
    using QCheckBox::QCheckBox;

    /// Draws the frame around the place of a tick.
    static void drawFrame(QPainter& painter, const QRect& place, const QPalette& palette);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace pallistrom
