// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/onboarding/CrossFade.h"

#include "OnboardingTest.h"

namespace pallistrom {

namespace {

class CrossFadeTest : public OnboardingTest {
protected:
    CrossFadeTest() { platform.reducesMotion = false; }

    QList<CrossFade*> fades() { return view->findChildren<CrossFade*>(); }

    void finish() {
        for (CrossFade* const each : fades()) {
            auto* const opacity = each->findChild<QVariantAnimation*>();
            opacity->setCurrentTime(opacity->duration());
        }
        settle();
    }

    QImage stepArea() {
        const QRect aboveTheBar(0, 0, 560, 480);
        return view->grab(aboveTheBar).toImage();
    }
};

TEST_F(CrossFadeTest, beginsWithTheStepThatWasAndEndsWithTheOneThatIs) {
    open();
    const QImage welcome = stepArea();
    primary().click();
    ASSERT_EQ(fades().size(), 1);
    EXPECT_EQ(stepArea(), welcome);
    finish();
    EXPECT_TRUE(fades().isEmpty());
    EXPECT_NE(stepArea(), welcome);
}

TEST_F(CrossFadeTest, takesAboutAQuarterOfASecond) {
    open();
    primary().click();
    EXPECT_EQ(fades().at(0)->findChild<QVariantAnimation*>()->duration(), 250);
}

TEST_F(CrossFadeTest, isThereOnTheWayBackToo) {
    openAt(1);
    finish();
    back().click();
    EXPECT_EQ(fades().size(), 1);
}

TEST_F(CrossFadeTest, givesWayToTheNextOne) {
    openAt(3);
    EXPECT_EQ(fades().size(), 1);
    EXPECT_EQ(view->step(), 3);
}

TEST_F(CrossFadeTest, isNotThereForDone) {
    openAt(3);
    finish();
    primary().click();
    EXPECT_TRUE(fades().isEmpty());
}

TEST_F(CrossFadeTest, isNotThereWhereNoAnimationsAreWanted) {
    open();
    const QImage welcome = stepArea();
    platform.reducesMotion = true;
    primary().click();
    EXPECT_TRUE(fades().isEmpty());
    EXPECT_NE(stepArea(), welcome);
}

TEST_F(CrossFadeTest, diesWithTheGuide) {
    open();
    primary().click();
    view.reset();
    settle();
}

} // namespace

} // namespace pallistrom
