// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/DarkPalette.h"

#include "OffscreenApplication.h"

#include <gtest/gtest.h>

#include <cmath>

namespace pallistrom {

namespace {

/// How bright a colour is to the eye, as the web's rules for contrast count it.
double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

class DarkPalette : public testing::Test {
protected:
    static QPalette light() {
        QPalette palette(QColor(0xef, 0xef, 0xef));
        palette.setColor(QPalette::Highlight, QColor(0xd0, 0x30, 0x60));
        palette.setColor(QPalette::HighlightedText, Qt::white);
        palette.setColor(QPalette::Link, QColor(0x00, 0x00, 0xc0));
        return palette;
    }

    OffscreenApplication application;
};

TEST_F(DarkPalette, isDarkWhereTheOtherIsLight) {
    EXPECT_FALSE(isDark(light()));
    EXPECT_TRUE(isDark(darkPalette(light())));
}

TEST_F(DarkPalette, keepsTheAccent) {
    const QPalette dark = darkPalette(light());
    EXPECT_EQ(dark.color(QPalette::Highlight), light().color(QPalette::Highlight));
    EXPECT_EQ(dark.color(QPalette::HighlightedText), light().color(QPalette::HighlightedText));
}

TEST_F(DarkPalette, canBeRead) {
    const QPalette dark = darkPalette(light());
    EXPECT_GE(contrast(dark.color(QPalette::WindowText), dark.color(QPalette::Window)), 7);
    EXPECT_GE(contrast(dark.color(QPalette::Text), dark.color(QPalette::Base)), 7);
    EXPECT_GE(contrast(dark.color(QPalette::ButtonText), dark.color(QPalette::Button)), 7);
    EXPECT_GE(contrast(dark.color(QPalette::Link), dark.color(QPalette::Window)), 3);
    EXPECT_GE(contrast(dark.color(QPalette::PlaceholderText), dark.color(QPalette::Base)), 4.5);
    EXPECT_GE(contrast(dark.color(QPalette::Disabled, QPalette::Text), dark.color(QPalette::Base)),
              3);
}

} // namespace

} // namespace pallistrom
