// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/window/TickBox.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>

namespace pallistrom {

void TickBox::drawFrame(QPainter& painter, const QRect& place, const QPalette& palette) {
    constexpr float faintness = 0.4F;
    QColor colour = palette.color(QPalette::Text);
    colour.setAlphaF(faintness);
    painter.setPen(colour);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(place.adjusted(0, 0, -1, -1));
}

void TickBox::paintEvent(QPaintEvent* event) {
    QCheckBox::paintEvent(event);
    QStyleOptionButton option;
    initStyleOption(&option);
    QPainter painter(this);
    drawFrame(
        painter, style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this), palette());
}

} // namespace pallistrom
