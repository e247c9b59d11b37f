// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/Switch.h"

#include "ViewTest.h"

#include <QApplication>
#include <QTest>

namespace pallistrom {

namespace {

class SwitchTest : public ViewTest {
protected:
    SwitchTest() { show(control); }

    /// Returns the colour of the track beside where the knob is not.
    QColor trackColour(bool isOn) { return pixelOf(control, isOn ? QPoint(8, 4) : QPoint(30, 4)); }

    QVariantAnimation& slide() { return *control.findChild<QVariantAnimation*>(); }

    Switch control;
};

TEST_F(SwitchTest, isTintedWhereItIsOn) {
    EXPECT_TRUE(isColour(trackColour(false), onWhite(Qt::black, 0.2)));
    control.showValue(true);
    EXPECT_TRUE(isColour(trackColour(true), Qt::blue));
}

TEST_F(SwitchTest, isToggledBySpaceAndByAClickAnywhereOnIt) {
    control.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&control, Qt::Key_Space);
    EXPECT_TRUE(control.isChecked());
    for (const QPoint place : {QPoint(1, 1), QPoint(36, 20), QPoint(19, 11)}) {
        const bool before = control.isChecked();
        QTest::mouseClick(&control, Qt::LeftButton, Qt::NoModifier, place);
        EXPECT_NE(control.isChecked(), before);
    }
}

TEST_F(SwitchTest, slidesUnderTheFingerOnly) {
    platform.reducesMotion = false;
    control.click();
    EXPECT_EQ(slide().state(), QAbstractAnimation::Running);
    slide().setCurrentTime(slide().duration());
    EXPECT_EQ(slide().state(), QAbstractAnimation::Stopped);
    EXPECT_TRUE(isColour(trackColour(true), Qt::blue));

    control.click();
    EXPECT_EQ(slide().state(), QAbstractAnimation::Running);
    control.showValue(true);
    EXPECT_EQ(slide().state(), QAbstractAnimation::Stopped);
    EXPECT_TRUE(isColour(trackColour(true), Qt::blue));
    control.showValue(false);
    EXPECT_TRUE(isColour(trackColour(false), onWhite(Qt::black, 0.2)));
}

TEST_F(SwitchTest, doesNotSlideWhereNoAnimationsAreWanted) {
    control.click();
    EXPECT_EQ(slide().state(), QAbstractAnimation::Stopped);
    EXPECT_TRUE(isColour(trackColour(true), Qt::blue));
}

TEST_F(SwitchTest, followsTheColoursOfTheDesktop) {
    control.showValue(true);
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::Highlight, Qt::red);
    QApplication::setPalette(palette);
    settle();
    EXPECT_TRUE(isColour(trackColour(true), Qt::red));
}

} // namespace

} // namespace pallistrom
