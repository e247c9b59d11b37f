// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/Divider.h"

#include "views/controls/AccessibleRole.h"
#include "views/style/Tone.h"
#include "views/style/drawing.h"

#include <QPainter>

namespace pallistrom {

Divider::Divider() {
    setFixedHeight(1);
    setDecorative(*this);
}

void Divider::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRectF line(0, 0, width(), hairline(painter));
    painter.fillRect(onDevicePixels(painter, line), colourOf(Tone::Separator, palette()));
}

} // namespace pallistrom
