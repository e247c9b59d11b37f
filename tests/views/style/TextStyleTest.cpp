// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/style/TextStyle.h"

#include <QFont>

#include <gtest/gtest.h>

namespace pallistrom {

namespace {

struct Row {
    TextStyle style;
    int pixelSize;
    QFont::Weight weight;
};

TEST(TextStyle, hasTheSizesAndWeightsOfTheTypeScale) {
    for (const Row& row : {Row{TextStyle::Greeting, 26, QFont::Bold},
                           Row{TextStyle::Title2Bold, 17, QFont::Bold},
                           Row{TextStyle::Headline, 13, QFont::Bold},
                           Row{TextStyle::Body, 13, QFont::Normal},
                           Row{TextStyle::Subheadline, 11, QFont::Normal},
                           Row{TextStyle::Caption, 10, QFont::Normal},
                           Row{TextStyle::KeyCap, 13, QFont::DemiBold},
                           Row{TextStyle::Badge, 9, QFont::DemiBold}}) {
        const QFont font = fontOf(row.style);
        EXPECT_EQ(font.pixelSize(), row.pixelSize);
        EXPECT_EQ(font.weight(), row.weight);
    }
}

} // namespace

} // namespace pallistrom
