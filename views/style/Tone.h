// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

#include <cstdint>

class QPalette;

namespace pallistrom {

/// What a colour is for. Each follows the desktop's palette, light or dark.
enum class Tone : std::uint8_t {
    Primary,         ///< texts
    Secondary,       ///< texts that stand back
    QuaternaryLabel, ///< what lies behind texts
    Tint,            ///< the desktop's accent
    OnTint,          ///< texts on it
    Green,
    Orange,
    Separator,
    Panel,        ///< the inside of a group box
    PanelBorder,  ///< its edge
    Button,       ///< the inside of a push button
    ButtonBorder, ///< its edge
    Pressed,      ///< laid over what is held down
    SwitchOff,    ///< the track of a switch that is off
    Knob,         ///< of a switch
    KnobShadow,   ///< around it
    FocusRing,
};

/// Returns the colour of a tone. It is the same in windows in front and behind: what is green stays
/// green.
[[nodiscard]] QColor colourOf(Tone tone, const QPalette& palette);

/// Returns `colour` at a part (0 to 1) of its opacity.
[[nodiscard]] QColor atOpacity(QColor colour, double opacity);

} // namespace pallistrom
