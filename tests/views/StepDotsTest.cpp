// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/StepDots.h"

#include "ViewTest.h"
#include "views/controls/Dot.h"

#include <QLayout>

namespace pallistrom {

namespace {

class StepDotsTest : public ViewTest {
protected:
    /// Returns the colour of each dot, in order.
    static std::vector<QColor> coloursOf(StepDots& dots) {
        dots.resize(dots.sizeHint());
        std::vector<QColor> colours;
        for (Dot* const dot : dots.findChildren<Dot*>()) {
            colours.push_back(pixelOf(*dot, QPoint(3, 3)));
        }
        return colours;
    }

    const QColor highlighted = onWhite(Qt::black, 0.8);
    const QColor dim = onWhite(Qt::black, 0.55 * 0.3);
};

TEST_F(StepDotsTest, areSevenWideAndSevenApart) {
    StepDots dots(0, 4);
    show(dots);
    dots.resize(dots.sizeHint());
    settle();
    int left = 0;
    for (const Dot* const dot : dots.findChildren<Dot*>()) {
        EXPECT_EQ(placeOf(*dot, dots), QRect(left, 0, 7, 7));
        left += 14;
    }
    EXPECT_EQ(dots.sizeHint(), QSize(4 * 7 + 3 * 7, 7));
}

TEST_F(StepDotsTest, highlightTheCurrentOneOnly) {
    StepDots dots(2, 4);
    const auto colours = coloursOf(dots);
    ASSERT_EQ(colours.size(), 4U);
    EXPECT_TRUE(isColour(colours[0], dim));
    EXPECT_TRUE(isColour(colours[1], dim));
    EXPECT_TRUE(isColour(colours[2], highlighted));
    EXPECT_TRUE(isColour(colours[3], dim));
}

TEST_F(StepDotsTest, moveTheHighlight) {
    StepDots dots(0, 2);
    dots.setCurrent(1);
    const auto colours = coloursOf(dots);
    EXPECT_TRUE(isColour(colours[0], dim));
    EXPECT_TRUE(isColour(colours[1], highlighted));
}

TEST_F(StepDotsTest, areAllDimWhereTheCurrentIsNoneOfThem) {
    for (const std::int64_t current : {std::int64_t{-1}, std::int64_t{4}}) {
        StepDots dots(current, 4);
        for (const QColor& colour : coloursOf(dots)) {
            EXPECT_TRUE(isColour(colour, dim));
        }
    }
}

TEST_F(StepDotsTest, drawNothingWhereThereAreNone) {
    StepDots dots(0, 0);
    EXPECT_TRUE(dots.findChildren<Dot*>().isEmpty());
    EXPECT_EQ(dots.sizeHint(), QSize(0, 0));
    dots.resize(20, 20);
    EXPECT_TRUE(isColour(pixelOf(dots, QPoint(3, 3)), Qt::white));
}

TEST_F(StepDotsTest, areRound) {
    StepDots dots(0, 1);
    Dot& dot = only<Dot>(dots);
    EXPECT_TRUE(isColour(pixelOf(dot, QPoint(3, 0)), highlighted) ||
                pixelOf(dot, QPoint(3, 0)).lightness() < 128);
    EXPECT_GT(pixelOf(dot, QPoint(0, 0)).lightness(), 200);
}

TEST_F(StepDotsTest, stopTheProgramForANegativeNumber) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(StepDots(0, -1), "");
}

} // namespace

} // namespace pallistrom
