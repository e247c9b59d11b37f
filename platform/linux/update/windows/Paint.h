// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QRectF>

#include <cstdint>

class QPainter;
class QPalette;

/// How the controls of the update window are drawn, so that it looks like the program's other
/// windows.
namespace pallistrom::Paint {

/// What a colour is for. Each follows the desktop's palette, light or dark.
enum class Use : std::uint8_t {
    Accent,
    OnAccent,
    Words,
    QuietWords,
    ButtonFill,
    ButtonEdge,
    Pressed, ///< laid over what is held down
    PanelFill,
    PanelEdge,
    Track, ///< behind a progress bar
    Thumb, ///< of a scroll bar
    FocusRing,
};

[[nodiscard]] QColor colour(Use use, const QPalette& palette);

/// Fills `area`, fitted to the pixels of the screen, with round corners.
void fill(QPainter& painter, const QRectF& area, double radius, const QColor& colour);

/// Draws a line of `width` inside the edge of `area`; 0 is as thin as it can be.
void outline(
    QPainter& painter, const QRectF& area, double radius, double width, const QColor& colour);

} // namespace pallistrom::Paint
