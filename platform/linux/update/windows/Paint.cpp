// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/windows/Paint.h"

#include "platform/linux/application/DarkPalette.h"

#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace pallistrom::Paint {

namespace {

// A role of the palette, or white, each at an opacity for light and one for dark windows.
struct Row {
    QPalette::ColorRole role; // NoRole: white
    float light;
    float dark;
};

// In the order of the enumeration.
constexpr std::array table{
    Row{QPalette::Highlight, 1, 1},          // Accent
    Row{QPalette::HighlightedText, 1, 1},    // OnAccent
    Row{QPalette::WindowText, 1, 1},         // Words
    Row{QPalette::WindowText, 0.6F, 0.6F},   // QuietWords
    Row{QPalette::NoRole, 1, 0.14F},         // ButtonFill
    Row{QPalette::WindowText, 0.18F, 0.06F}, // ButtonEdge
    Row{QPalette::WindowText, 0.1F, 0.12F},  // Pressed
    Row{QPalette::NoRole, 0.5F, 0.05F},      // PanelFill
    Row{QPalette::WindowText, 0.08F, 0.08F}, // PanelEdge
    Row{QPalette::WindowText, 0.12F, 0.16F}, // Track
    Row{QPalette::WindowText, 0.3F, 0.35F},  // Thumb
    Row{QPalette::Highlight, 0.55F, 0.7F},   // FocusRing
};

double scaleOf(const QPainter& painter) {
    return painter.device()->devicePixelRatioF();
}

QRectF onPixels(const QPainter& painter, const QRectF& area) {
    const double scale = scaleOf(painter);
    const auto fitted = [scale](double place) {
        return std::round(place * scale) / scale;
    };
    return {QPointF(fitted(area.left()), fitted(area.top())),
            QPointF(fitted(area.right()), fitted(area.bottom()))};
}

} // namespace

QColor colour(Use use, const QPalette& palette) {
    const Row& row = table.at(static_cast<std::size_t>(use));
    QColor result = row.role == QPalette::NoRole ? QColor(Qt::white)
                                                 : palette.color(QPalette::Active, row.role);
    result.setAlphaF(isDark(palette) ? row.dark : row.light);
    return result;
}

void fill(QPainter& painter, const QRectF& area, double radius, const QColor& colour) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(onPixels(painter, area), radius, radius);
}

void outline(
    QPainter& painter, const QRectF& area, double radius, double width, const QColor& colour) {
    const double scale = scaleOf(painter);
    const double line = std::max(1.0, std::floor(std::max(width, 1.0) * scale)) / scale;
    const double inset = line / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, line));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(onPixels(painter, area).adjusted(inset, inset, -inset, -inset),
                            radius - inset,
                            radius - inset);
}

} // namespace pallistrom::Paint
