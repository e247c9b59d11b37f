// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/AccessibilityStatusPill.h"

#include "ViewTest.h"
#include "views/controls/Dot.h"
#include "views/controls/Text.h"

namespace pallistrom {

namespace {

const QColor green(0x34, 0xc7, 0x59);
const QColor orange(0xff, 0x95, 0x00);

class AccessibilityStatusPillTest : public ViewTest {
protected:
    static QColor dotColour(AccessibilityStatusPill& pill) {
        return pixelOf(only<Dot>(pill), QPoint(4, 4));
    }

    static QString textOf(AccessibilityStatusPill& pill) { return only<Text>(pill).text(); }
};

TEST_F(AccessibilityStatusPillTest, waitsInOrangeAndInThePrimaryColour) {
    setTrusted(false);
    AccessibilityStatusPill pill;
    EXPECT_TRUE(isColour(dotColour(pill), orange));
    EXPECT_EQ(textOf(pill), QStringLiteral("Waiting for Accessibility access"));
    EXPECT_EQ(only<Text>(pill).tone(), Tone::Primary);
}

TEST_F(AccessibilityStatusPillTest, turnsGreenAndDimWhileItIsOnShow) {
    setTrusted(false);
    AccessibilityStatusPill pill;
    show(pill);
    setTrusted(true);
    EXPECT_TRUE(isColour(dotColour(pill), green));
    EXPECT_EQ(textOf(pill), QStringLiteral("Accessibility access granted"));
    EXPECT_EQ(only<Text>(pill).tone(), Tone::Secondary);

    setTrusted(false);
    EXPECT_TRUE(isColour(dotColour(pill), orange));
    EXPECT_EQ(only<Text>(pill).tone(), Tone::Primary);
}

TEST_F(AccessibilityStatusPillTest, changesTogetherWithEveryOtherPill) {
    setTrusted(false);
    AccessibilityStatusPill one;
    AccessibilityStatusPill other;
    setTrusted(true);
    EXPECT_EQ(textOf(one), QStringLiteral("Accessibility access granted"));
    EXPECT_EQ(textOf(other), textOf(one));
}

TEST_F(AccessibilityStatusPillTest, readsTheStateOnALaterTurnThanItsSignal) {
    setTrusted(false);
    AccessibilityStatusPill pill;
    platform.trusted = true;
    state.refresh();
    EXPECT_EQ(textOf(pill), QStringLiteral("Waiting for Accessibility access"));
    settle();
    EXPECT_EQ(textOf(pill), QStringLiteral("Accessibility access granted"));
}

TEST_F(AccessibilityStatusPillTest, leavesTheRoomsThatItIsDrawnWith) {
    AccessibilityStatusPill pill;
    show(pill);
    pill.resize(pill.sizeHint());
    settle();
    const QRect dot = placeOf(only<Dot>(pill), pill);
    const QRect text = placeOf(only<Text>(pill), pill);
    EXPECT_EQ(dot.size(), QSize(9, 9));
    EXPECT_EQ(dot.left(), 12);
    EXPECT_EQ(text.left() - (dot.right() + 1), 8);
    EXPECT_EQ(pill.width() - (text.right() + 1), 12);
    EXPECT_EQ(text.top(), 6);
    EXPECT_EQ(pill.height() - (text.bottom() + 1), 6);
    EXPECT_EQ(only<Text>(pill).font().pixelSize(), 11);
    EXPECT_NEAR(dot.center().y(), pill.rect().center().y(), 1);
}

TEST_F(AccessibilityStatusPillTest, liesOnACapsuleInTheQuaternaryColour) {
    AccessibilityStatusPill pill;
    pill.resize(pill.sizeHint());
    const QPoint topEdge(pill.width() / 2, 1);
    EXPECT_TRUE(isColour(pixelOf(pill, topEdge), onWhite(Qt::black, 0.1 * 0.6)));
    const QPoint leftEdge(1, pill.height() / 2);
    EXPECT_TRUE(isColour(pixelOf(pill, leftEdge), onWhite(Qt::black, 0.1 * 0.6)));
    EXPECT_TRUE(isColour(pixelOf(pill, QPoint(2, 2)), Qt::white)) << "corners are cut";
}

} // namespace

} // namespace pallistrom
