// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/style/Tone.h"

#include <QPalette>

#include <gtest/gtest.h>

namespace pallistrom {

namespace {

QPalette paletteOf(const QColor& window, const QColor& text) {
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Active, QPalette::Highlight, Qt::magenta);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, Qt::gray);
    return palette;
}

const QPalette light = paletteOf(Qt::white, Qt::black);
const QPalette dark = paletteOf(Qt::black, Qt::white);

TEST(Tone, hasTheSystemsGreenAndOrangeForLightAndDark) {
    EXPECT_EQ(colourOf(Tone::Green, light), QColor(0x34, 0xc7, 0x59));
    EXPECT_EQ(colourOf(Tone::Orange, light), QColor(0xff, 0x95, 0x00));
    EXPECT_EQ(colourOf(Tone::Green, dark), QColor(0x30, 0xd1, 0x58));
    EXPECT_EQ(colourOf(Tone::Orange, dark), QColor(0xff, 0x9f, 0x0a));
}

TEST(Tone, isMadeOfTheLabelColour) {
    for (const QPalette& palette : {light, dark}) {
        const QColor label = palette.color(QPalette::WindowText);
        EXPECT_EQ(colourOf(Tone::Primary, palette), label);
        EXPECT_EQ(colourOf(Tone::Secondary, palette).rgb(), label.rgb());
        EXPECT_NEAR(colourOf(Tone::Secondary, palette).alphaF(), 0.55, 0.01);
        EXPECT_EQ(colourOf(Tone::QuaternaryLabel, palette).rgb(), label.rgb());
        EXPECT_NEAR(colourOf(Tone::QuaternaryLabel, palette).alphaF(), 0.1, 0.01);
    }
}

TEST(Tone, tintsByTheDesktopsAccentInFrontAndBehind) {
    QPalette palette = light;
    EXPECT_EQ(colourOf(Tone::Tint, palette), QColor(Qt::magenta));
    palette.setCurrentColorGroup(QPalette::Inactive);
    EXPECT_EQ(colourOf(Tone::Tint, palette), QColor(Qt::magenta));
}

TEST(Tone, takesAPartOfWhatOpacityThereIs) {
    EXPECT_NEAR(atOpacity(colourOf(Tone::QuaternaryLabel, light), 0.6).alphaF(), 0.06, 0.005);
}

} // namespace

} // namespace pallistrom
