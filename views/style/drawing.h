// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

class QPainter;
class QColor;

namespace pallistrom {

/// Returns `rect` fitted to whole pixels of the screen, which at 1.25 lie between those of the
/// window. What is drawn in such rectangles has sharp edges, and what is of one size in the window
/// is so on the screen.
[[nodiscard]] QRectF onDevicePixels(const QPainter& painter, const QRectF& rect);

/// Returns how wide a line of about one logical pixel is, in whole pixels of the screen.
[[nodiscard]] double hairline(const QPainter& painter);

/// Fills a rectangle with round corners.
void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& colour);

/// Fills a shape that ends in half circles.
void fillCapsule(QPainter& painter, const QRectF& rect, const QColor& colour);

/// Draws a hairline inside the edge of a rectangle with round corners.
void strokeRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& colour);

} // namespace pallistrom
