// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/style/TextStyle.h"

#include <QFontDatabase>
#include <QStringList>

#include <array>
#include <cstddef>

namespace pallistrom {

namespace {

struct Row {
    int pixelSize;
    QFont::Weight weight;
};

constexpr int bodySize = 13;

// In the order of the enumeration. A point is a logical pixel.
constexpr std::array table{
    Row{26, QFont::Bold},           // Greeting
    Row{17, QFont::Bold},           // Title2Bold
    Row{bodySize, QFont::Bold},     // Headline
    Row{bodySize, QFont::Normal},   // Body
    Row{11, QFont::Normal},         // Subheadline
    Row{10, QFont::Normal},         // Caption
    Row{bodySize, QFont::DemiBold}, // KeyCap
    Row{9, QFont::DemiBold},        // Badge
};

} // namespace

QFont fontOf(TextStyle style) {
    const Row& row = table.at(static_cast<std::size_t>(style));
    QFont font;
    font.setPixelSize(row.pixelSize);
    font.setWeight(row.weight);
    if (style == TextStyle::KeyCap) {
        font.setFamilies(QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
        font.setStyleHint(QFont::Monospace);
    }
    return font;
}

} // namespace pallistrom
