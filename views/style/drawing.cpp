// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/style/drawing.h"

#include <QColor>
#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace pallistrom {

namespace {

// Rounded down, as the last pixel is cut off where a widget ends in the middle of it.
double wholePixels(double length) {
    constexpr double rounding = 0.01;
    return std::floor(length + rounding);
}

} // namespace

QRectF onDevicePixels(const QPainter& painter, const QRectF& rect) {
    const QTransform& toDevice = painter.deviceTransform();
    const QRectF device = toDevice.mapRect(rect);
    const QPointF topLeft(std::round(device.left()), std::round(device.top()));
    const QSizeF size(wholePixels(device.width()), wholePixels(device.height()));
    return toDevice.inverted().mapRect(QRectF(topLeft, size));
}

double hairline(const QPainter& painter) {
    const double scale = painter.deviceTransform().m22();
    return std::max(1.0, std::floor(scale)) / scale;
}

void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& colour) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(onDevicePixels(painter, rect), radius, radius);
}

void fillCapsule(QPainter& painter, const QRectF& rect, const QColor& colour) {
    fillRounded(painter, rect, std::min(rect.width(), rect.height()) / 2, colour);
}

void strokeRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& colour) {
    const double width = hairline(painter);
    const double inset = width / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(onDevicePixels(painter, rect).adjusted(inset, inset, -inset, -inset),
                            radius - inset,
                            radius - inset);
}

} // namespace pallistrom
