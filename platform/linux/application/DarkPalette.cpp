// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/DarkPalette.h"

#include <algorithm>
#include <array>

namespace pallistrom {

namespace {

struct RoleColour {
    QPalette::ColorRole role;
    QRgb colour;
};

constexpr std::array colours{
    RoleColour{QPalette::Window, 0xff2a2a2d},
    RoleColour{QPalette::WindowText, 0xfff2f2f3},
    RoleColour{QPalette::Base, 0xff1e1e20},
    RoleColour{QPalette::AlternateBase, 0xff252528},
    RoleColour{QPalette::ToolTipBase, 0xff3a3a3e},
    RoleColour{QPalette::ToolTipText, 0xfff2f2f3},
    RoleColour{QPalette::Text, 0xfff2f2f3},
    RoleColour{QPalette::PlaceholderText, 0xff8f8f95},
    RoleColour{QPalette::Button, 0xff3a3a3e},
    RoleColour{QPalette::ButtonText, 0xfff2f2f3},
    RoleColour{QPalette::BrightText, 0xffffffff},
    RoleColour{QPalette::Light, 0xff55555a},
    RoleColour{QPalette::Midlight, 0xff46464a},
    RoleColour{QPalette::Mid, 0xff303034},
    RoleColour{QPalette::Dark, 0xff19191b},
    RoleColour{QPalette::Shadow, 0xff000000},
};

constexpr std::array disabledColours{
    RoleColour{QPalette::WindowText, 0xff7c7c82},
    RoleColour{QPalette::Text, 0xff7c7c82},
    RoleColour{QPalette::ButtonText, 0xff7c7c82},
    RoleColour{QPalette::Highlight, 0xff46464a},
    RoleColour{QPalette::HighlightedText, 0xff9a9aa0},
};

/// Links have to be read on the dark ground, which the accent of light colours often cannot be.
constexpr int darkestLink = 190;

} // namespace

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

QPalette darkPalette(const QPalette& light) {
    QPalette dark = light;
    for (const auto& [role, colour] : colours) {
        dark.setColor(role, QColor(colour));
    }
    for (const auto& [role, colour] : disabledColours) {
        dark.setColor(QPalette::Disabled, role, QColor(colour));
    }
    for (const auto role : {QPalette::Link, QPalette::LinkVisited}) {
        const QColor link = light.color(role);
        dark.setColor(role,
                      QColor::fromHsl(link.hslHue(),
                                      link.hslSaturation(),
                                      std::max(link.lightness(), darkestLink)));
    }
    return dark;
}

} // namespace pallistrom
