// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/style/Tone.h"

#include <QPalette>

#include <array>
#include <cstddef>

namespace pallistrom {

namespace {

// How a tone is made: from a role of the palette, or from a colour of our own, each at an opacity
// for light and one for dark windows.
struct Row {
    QPalette::ColorRole role; // NoRole: `light` and `dark` are the colours
    double lightOpacity;
    double darkOpacity;
    QRgb light = 0;
    QRgb dark = 0;
};

constexpr QRgb white = 0xffffffff;
constexpr QRgb black = 0xff000000;

// In the order of the enumeration.
constexpr std::array table{
    Row{QPalette::WindowText, 1, 1},                     // Primary
    Row{QPalette::WindowText, 0.55, 0.55},               // Secondary
    Row{QPalette::WindowText, 0.1, 0.1},                 // QuaternaryLabel
    Row{QPalette::Highlight, 1, 1},                      // Tint
    Row{QPalette::HighlightedText, 1, 1},                // OnTint
    Row{QPalette::NoRole, 1, 1, 0xff34c759, 0xff30d158}, // Green
    Row{QPalette::NoRole, 1, 1, 0xffff9500, 0xffff9f0a}, // Orange
    Row{QPalette::WindowText, 0.12, 0.14},               // Separator
    Row{QPalette::NoRole, 0.5, 0.05, white, white},      // Panel
    Row{QPalette::WindowText, 0.08, 0.08},               // PanelBorder
    Row{QPalette::NoRole, 1, 0.14, white, white},        // Button
    Row{QPalette::WindowText, 0.18, 0.06},               // ButtonBorder
    Row{QPalette::WindowText, 0.1, 0.12},                // Pressed
    Row{QPalette::WindowText, 0.2, 0.24},                // SwitchOff
    Row{QPalette::NoRole, 1, 0.96, white, white},        // Knob
    Row{QPalette::NoRole, 0.14, 0.3, black, black},      // KnobShadow
    Row{QPalette::Highlight, 0.55, 0.7},                 // FocusRing
};

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Active, QPalette::Window).lightness() <
           palette.color(QPalette::Active, QPalette::WindowText).lightness();
}

} // namespace

QColor colourOf(Tone tone, const QPalette& palette) {
    const Row& row = table.at(static_cast<std::size_t>(tone));
    const bool dark = isDark(palette);
    const QColor colour = row.role == QPalette::NoRole
                              ? QColor::fromRgba(dark ? row.dark : row.light)
                              : palette.color(QPalette::Active, row.role);
    return atOpacity(colour, dark ? row.darkOpacity : row.lightOpacity);
}

QColor atOpacity(QColor colour, double opacity) {
    colour.setAlphaF(static_cast<float>(colour.alphaF() * opacity));
    return colour;
}

} // namespace pallistrom
