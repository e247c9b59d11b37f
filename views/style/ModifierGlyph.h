// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QChar>
#include <QPointF>

class QColor;
class QFontMetricsF;
class QPainter;

/// The signs of control and option, which few fonts have and each draws in its own way. We draw
/// them ourselves, as high as the capitals of the font beside them.
namespace pallistrom::ModifierGlyph {

[[nodiscard]] bool isOne(QChar character);

/// Returns how far it is to the next character.
[[nodiscard]] double width(const QFontMetricsF& metrics);

/// Draws the sign, beginning at `baseline`.
void draw(QPainter& painter,
          QChar character,
          QPointF baseline,
          const QFontMetricsF& metrics,
          const QColor& colour);

} // namespace pallistrom::ModifierGlyph
