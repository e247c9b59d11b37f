// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/access/GrantSwitch.h"

#include <QPainter>

namespace pallistrom {

namespace {

constexpr QSizeF trackSize(38, 22);
constexpr double knobInset = 2;
constexpr double ringWidth = 2;
constexpr double ringSpace = 1;
constexpr double margin = ringWidth + ringSpace;

void fillCapsule(QPainter& painter, const QRectF& rect, const QColor& colour) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(rect, rect.height() / 2, rect.height() / 2);
}

} // namespace

GrantSwitch::GrantSwitch(QWidget* parent) : QCheckBox(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize GrantSwitch::sizeHint() const {
    return (trackSize + QSizeF(2 * margin, 2 * margin)).toSize();
}

bool GrantSwitch::hitButton(const QPoint& position) const {
    return rect().contains(position);
}

void GrantSwitch::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled()) {
        constexpr double faint = 0.65;
        painter.setOpacity(faint);
    }
    QColor off = palette().color(QPalette::Active, QPalette::WindowText);
    constexpr double offOpacity = 0.25;
    off.setAlphaF(offOpacity);
    const QColor on = palette().color(QPalette::Active, QPalette::Highlight);
    const QRectF track{QPointF(margin, margin), trackSize};
    fillCapsule(painter, track, isChecked() ? on : off);

    const double diameter = track.height() - 2 * knobInset;
    const bool isRight = isChecked() != (layoutDirection() == Qt::RightToLeft);
    const double left = isRight ? track.right() - knobInset - diameter : track.left() + knobInset;
    fillCapsule(painter, {left, track.top() + knobInset, diameter, diameter}, Qt::white);

    if (hasFocus()) {
        constexpr double half = ringWidth / 2;
        const QRectF ring = QRectF(rect()).adjusted(half, half, -half, -half);
        painter.setPen(QPen(on, ringWidth));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(ring, ring.height() / 2, ring.height() / 2);
    }
}

} // namespace pallistrom
