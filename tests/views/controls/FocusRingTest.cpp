// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/FocusRing.h"

#include "ViewTest.h"
#include "views/controls/PushButton.h"
#include "views/controls/Switch.h"

#include <QApplication>
#include <QBoxLayout>
#include <QTest>

namespace pallistrom {

namespace {

class FocusRingTest : public ViewTest {
protected:
    FocusRingTest() : button(new PushButton(QStringLiteral("Press"))), control(new Switch) {
        auto* const column = new QVBoxLayout(&window);
        column->addWidget(button);
        column->addWidget(control);
        show(window);
        QApplication::focusWidget()->clearFocus();
    }

    FocusRing& ring() { return only<FocusRing>(window); }

    /// Returns what the ring lies around, or nothing while it is not shown.
    QRect surrounded() {
        return ring().isVisible() ? ring().geometry().marginsRemoved(QMargins(4, 4, 4, 4))
                                  : QRect();
    }

    QWidget window;
    PushButton* button;
    Switch* control;
};

TEST_F(FocusRingTest, liesAroundWhatTabHasReached) {
    button->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(surrounded(), placeOf(*button, window));
    QTest::keyClick(button, Qt::Key_Tab);
    EXPECT_EQ(surrounded(), placeOf(*control, window));
    QTest::keyClick(control, Qt::Key_Backtab);
    EXPECT_EQ(surrounded(), placeOf(*button, window));
}

TEST_F(FocusRingTest, canBeSeen) {
    button->setFocus(Qt::TabFocusReason);
    const QRect place = placeOf(*button, window);
    const QPoint edge(place.center().x(), place.top() - 3);
    EXPECT_TRUE(isColour(pixelOf(window, edge), onWhite(Qt::blue, 0.55)));
}

TEST_F(FocusRingTest, isNotShownForTheMouse) {
    button->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(surrounded(), QRect());
    button->clearFocus();
    button->setFocus(Qt::OtherFocusReason);
    EXPECT_EQ(surrounded(), placeOf(*button, window));
}

TEST_F(FocusRingTest, isShownAsSoonAsAKeyIsPressed) {
    control->setFocus(Qt::MouseFocusReason);
    QTest::keyClick(control, Qt::Key_Space);
    EXPECT_EQ(surrounded(), placeOf(*control, window));
}

TEST_F(FocusRingTest, isNotShownBeforeTheKeyboardIsUsed) {
    QWidget fresh;
    auto* const row = new QHBoxLayout(&fresh);
    row->addWidget(new PushButton(QStringLiteral("Press")));
    show(fresh);
    for (const FocusRing* const each : fresh.findChildren<FocusRing*>()) {
        EXPECT_FALSE(each->isVisible());
    }
}

TEST_F(FocusRingTest, goesWithItsControl) {
    button->setFocus(Qt::TabFocusReason);
    window.resize(500, 300);
    settle();
    EXPECT_EQ(surrounded(), placeOf(*button, window));
    button->hide();
    settle();
    EXPECT_TRUE(control->hasFocus());
    EXPECT_EQ(surrounded(), placeOf(*control, window));
}

TEST_F(FocusRingTest, outlivesItsControl) {
    control->setFocus(Qt::TabFocusReason);
    delete control;
    settle();
    button->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(surrounded(), placeOf(*button, window));
}

TEST_F(FocusRingTest, letsTheMouseThrough) {
    button->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(window.childAt(placeOf(*button, window).center()), button);
}

} // namespace

} // namespace pallistrom
