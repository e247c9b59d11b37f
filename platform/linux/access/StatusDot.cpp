// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/access/StatusDot.h"

#include <QColor>
#include <QPainter>

namespace pallistrom {

StatusDot::StatusDot(QWidget* parent) : QWidget(parent) {
    constexpr int size = 12;
    setFixedSize(size, size);
}

void StatusDot::setColour(Colour colour) {
    m_colour = colour;
    update();
}

void StatusDot::paintEvent(QPaintEvent* /*event*/) {
    constexpr QColor green(52, 199, 89);
    constexpr QColor orange(255, 149, 0);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_colour == Colour::Green ? green : orange);
    painter.drawEllipse(rect());
}

} // namespace pallistrom
