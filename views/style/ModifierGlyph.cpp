// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/style/ModifierGlyph.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>

namespace pallistrom::ModifierGlyph {

namespace {

constexpr QChar control(u'\u2303');
constexpr QChar option(u'\u2325');

// In parts of the height of a capital, from the baseline upwards.
constexpr double advance = 1.3;
constexpr double side = 0.12; // left free on either side
constexpr double stroke = 0.17;

QPainterPath controlPath(double unit) {
    const double left = (side + 0.08) * unit;
    const double right = (advance - side - 0.08) * unit;
    QPainterPath path;
    path.moveTo(left, -0.46 * unit);
    path.lineTo((left + right) / 2, -0.9 * unit);
    path.lineTo(right, -0.46 * unit);
    return path;
}

QPainterPath optionPath(double unit) {
    const double left = side * unit;
    const double right = (advance - side) * unit;
    const double top = -(1 - stroke / 2) * unit;
    const double bottom = -stroke / 2 * unit;
    QPainterPath path;
    path.moveTo(left, top);
    path.lineTo(left + 0.3 * unit, top);
    path.lineTo(right - 0.32 * unit, bottom);
    path.lineTo(right, bottom);
    path.moveTo(right - 0.36 * unit, top);
    path.lineTo(right, top);
    return path;
}

} // namespace

bool isOne(QChar character) {
    return character == control || character == option;
}

double width(const QFontMetricsF& metrics) {
    return advance * metrics.capHeight();
}

void draw(QPainter& painter,
          QChar character,
          QPointF baseline,
          const QFontMetricsF& metrics,
          const QColor& colour) {
    const double unit = metrics.capHeight();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, stroke * unit, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(
        (character == control ? controlPath(unit) : optionPath(unit)).translated(baseline));
}

} // namespace pallistrom::ModifierGlyph
