// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/Badge.h"

#include "ViewTest.h"

#include <QFontMetrics>

namespace pallistrom {

namespace {

using BadgeTest = ViewTest;

TEST_F(BadgeTest, leavesTheRoomsThatItIsDrawnWith) {
    const Badge badge(QStringLiteral("Recommended"));
    EXPECT_EQ(badge.font().pixelSize(), 9);
    EXPECT_EQ(badge.font().weight(), QFont::DemiBold);
    const QFontMetrics metrics = badge.fontMetrics();
    EXPECT_NEAR(badge.sizeHint().width(), metrics.horizontalAdvance(badge.text()) + 2 * 6, 1);
    EXPECT_NEAR(badge.sizeHint().height(), metrics.height() + 2 * 1, 1);
}

TEST_F(BadgeTest, liesOnACapsuleInAShadeOfTheAccent) {
    Badge badge(QStringLiteral("Recommended"));
    badge.resize(badge.sizeHint());
    EXPECT_TRUE(isColour(pixelOf(badge, QPoint(3, badge.height() / 2)), onWhite(Qt::blue, 0.15)));
    EXPECT_TRUE(isColour(pixelOf(badge, QPoint(0, 0)), Qt::white));
}

} // namespace

} // namespace pallistrom
