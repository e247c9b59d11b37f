// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/KeyCap.h"

#include "ViewTest.h"

#include <QFontMetrics>

namespace pallistrom {

namespace {

class KeyCapTest : public ViewTest {
protected:
    /// Returns the columns from the first to the last that has ink of the label.
    static QRect inkOf(KeyCap& cap) {
        cap.resize(cap.sizeHint());
        const QImage image = cap.grab().toImage();
        QRect ink;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y).lightness() < 128) {
                    ink |= QRect(x, y, 1, 1);
                }
            }
        }
        const double scale = image.devicePixelRatio();
        return {(QPointF(ink.topLeft()) / scale).toPoint(),
                (QPointF(ink.bottomRight()) / scale).toPoint()};
    }
};

TEST_F(KeyCapTest, isAsWideAsAWideKeyAtLeast) {
    EXPECT_EQ(KeyCap(QStringLiteral("K")).sizeHint().width(), 42 + 2 * 8);
    EXPECT_EQ(KeyCap(QStringLiteral("⌃⌥K")).sizeHint().width(), 42 + 2 * 8);
    const KeyCap wide(QStringLiteral("Backspace"));
    EXPECT_NEAR(wide.sizeHint().width(),
                wide.fontMetrics().horizontalAdvance(QStringLiteral("Backspace")) + 2 * 8,
                1);
    EXPECT_EQ(wide.sizeHint().height(), wide.fontMetrics().height() + 2 * 3);
}

TEST_F(KeyCapTest, beginsItsLabelAtTheLeadingEdge) {
    KeyCap cap(QStringLiteral("H"));
    const QRect ink = inkOf(cap);
    EXPECT_GE(ink.left(), 8);
    EXPECT_LE(ink.right(), 8 + cap.fontMetrics().horizontalAdvance(QLatin1Char('H')));
}

TEST_F(KeyCapTest, isWrittenInASemiBoldMonospacedBodyFont) {
    const KeyCap cap(QStringLiteral("K"));
    EXPECT_EQ(cap.font().pixelSize(), 13);
    EXPECT_EQ(cap.font().weight(), QFont::DemiBold);
    EXPECT_EQ(cap.fontMetrics().horizontalAdvance(QLatin1Char('i')),
              cap.fontMetrics().horizontalAdvance(QLatin1Char('W')));
}

TEST_F(KeyCapTest, drawsTheSignsOfControlAndOptionItself) {
    // As tall as a capital, or in its upper half: no font's box for a character that it lacks.
    KeyCap control(QStringLiteral("\u2303"));
    KeyCap option(QStringLiteral("\u2325"));
    const int capital = control.fontMetrics().capHeight();
    EXPECT_NEAR(inkOf(option).height(), capital, 1);
    EXPECT_LE(inkOf(control).height(), capital * 3 / 4);
    EXPECT_GT(inkOf(control).width(), capital / 2);
    EXPECT_NEAR(inkOf(control).top(), inkOf(option).top(), 1);
    EXPECT_EQ(control.accessibleName(), QStringLiteral("⌃"));
}

TEST_F(KeyCapTest, liesOnARoundRectangleInTheQuaternaryColour) {
    KeyCap cap(QStringLiteral("K"));
    cap.resize(cap.sizeHint());
    const QColor fill = onWhite(Qt::black, 0.1 * 0.5);
    const QPoint corner = cap.rect().bottomRight();
    EXPECT_TRUE(isColour(pixelOf(cap, corner - QPoint(3, 9)), fill));
    EXPECT_TRUE(isColour(pixelOf(cap, corner - QPoint(7, 0)), fill)) << "beyond the round corner";
    EXPECT_TRUE(isColour(pixelOf(cap, corner - QPoint(0, 7)), fill));
    EXPECT_TRUE(isColour(pixelOf(cap, corner), Qt::white));
    EXPECT_TRUE(isColour(pixelOf(cap, corner - QPoint(1, 1)), Qt::white));
    EXPECT_TRUE(isColour(pixelOf(cap, corner - QPoint(2, 2)), fill));
}

} // namespace

} // namespace pallistrom
