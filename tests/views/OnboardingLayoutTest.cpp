// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "OnboardingTest.h"
#include "views/AccessibilityStatusPill.h"
#include "views/LoginToggle.h"
#include "views/ShortcutRow.h"
#include "views/controls/Divider.h"
#include "views/controls/Switch.h"
#include "views/controls/SymbolView.h"
#include "views/controls/Text.h"
#include "views/onboarding/FinishStep.h"
#include "views/onboarding/PermissionStep.h"
#include "views/onboarding/ShortcutsStep.h"
#include "views/onboarding/WelcomeStep.h"

#include <QStackedWidget>

namespace pallistrom {

namespace {

class OnboardingLayout : public OnboardingTest {
protected:
    [[nodiscard]] QRect place(const QWidget& widget) const { return placeOf(widget, *view); }

    /// Returns the room between two widgets, one below the other.
    [[nodiscard]] int below(const QWidget& upper, const QWidget& lower) const {
        return place(lower).top() - (place(upper).bottom() + 1);
    }

    /// Expects `parts` one below the other at `spacing`, together in the middle of the step.
    void expectStack(const std::vector<QWidget*>& parts, int spacing) const {
        for (std::size_t index = 1; index < parts.size(); ++index) {
            EXPECT_EQ(below(*parts[index - 1], *parts[index]), spacing) << "before part " << index;
        }
        const QRect step = place(only<QStackedWidget>(*view));
        const int above = place(*parts.front()).top() - step.top();
        const int under = step.bottom() - place(*parts.back()).bottom();
        EXPECT_NEAR(above, under, 1);
    }

    void expectCentred(const QWidget& widget) const {
        EXPECT_NEAR(place(widget).center().x(), view->rect().center().x(), 1);
    }

    template<class Step>
    SymbolView& symbolOf() {
        return only<SymbolView>(only<Step>(*view));
    }
};

TEST_F(OnboardingLayout, isOfAFixedSize) {
    open();
    EXPECT_EQ(view->size(), QSize(560, 540));
    view->resize(700, 700);
    EXPECT_EQ(view->size(), QSize(560, 540));
}

TEST_F(OnboardingLayout, padsTheStepAndTheBar) {
    openAt(1);
    const QRect step = place(only<QStackedWidget>(*view));
    const QRect line = place(only<Divider>(*view));
    EXPECT_EQ(step.topLeft(), QPoint(32, 32));
    EXPECT_EQ(step.width(), 560 - 2 * 32);
    EXPECT_EQ(line.top() - (step.bottom() + 1), 32);
    EXPECT_EQ(line.left(), 0);
    EXPECT_EQ(line.width(), 560);
    EXPECT_EQ(place(back()).left(), 24);
    EXPECT_EQ(place(primary()).right() + 1, 560 - 24);
    EXPECT_EQ(place(primary()).bottom() + 1, 540 - 14);
    EXPECT_EQ(below(only<Divider>(*view), primary()), 14);
    EXPECT_NEAR(place(back()).center().y(), place(primary()).center().y(), 1);
    EXPECT_NEAR(place(only<StepDots>(*view)).center().y(), place(primary()).center().y(), 1);
}

TEST_F(OnboardingLayout, putsTheDotsIntoTheMiddleOfWhatTheButtonsLeave) {
    openAt(1);
    const QRect dots = place(only<StepDots>(*view));
    const int left = dots.left() - place(back()).right();
    const int right = place(primary()).left() - dots.right();
    EXPECT_NEAR(left, right, 1);
}

TEST_F(OnboardingLayout, takesNoRoomForABackThatIsNotThere) {
    open();
    const QRect dots = place(only<StepDots>(*view));
    EXPECT_NEAR(dots.left() - 24, place(primary()).left() - dots.right(), 9);
}

TEST_F(OnboardingLayout, drawsTheButtonsAsWhatTheyAre) {
    openAt(1);
    EXPECT_TRUE(isColour(pixelOf(primary(), QPoint(5, 12)), Qt::blue)) << "the default one";
    EXPECT_TRUE(isColour(pixelOf(back(), QPoint(0, 0)), Qt::white)) << "no bezel";
    EXPECT_EQ(showing<PushButton>(*view, "Open Accessibility Settings…").height(), 32);
    EXPECT_EQ(primary().height(), 24);
    EXPECT_EQ(primary().font().pixelSize(), 13);
    EXPECT_EQ(back().font().pixelSize(), 13);
}

TEST_F(OnboardingLayout, stacksTheWelcome) {
    open();
    auto& title = showing<Text>(*view, "Welcome to Pallistrom");
    auto& text = *only<WelcomeStep>(*view).findChildren<Text*>().at(1);
    auto& symbol = symbolOf<WelcomeStep>();
    expectStack({&symbol, &title, &text}, 18);
    expectCentred(symbol);
    EXPECT_EQ(symbol.height(), 64);
    EXPECT_TRUE(isColour(pixelOf(symbol, QPoint(32, 32)), Qt::blue));
    EXPECT_EQ(title.font().pixelSize(), 26);
    EXPECT_TRUE(title.font().bold());
    EXPECT_EQ(text.font().pixelSize(), 13);
    EXPECT_EQ(text.tone(), Tone::Secondary);
    EXPECT_TRUE(text.alignment().testFlag(Qt::AlignHCenter));
}

TEST_F(OnboardingLayout, stacksThePermission) {
    openAt(1);
    setTrusted(false);
    auto& title = showing<Text>(*view, "Grant Accessibility access");
    const auto texts = only<PermissionStep>(*view).findChildren<Text*>();
    auto& symbol = symbolOf<PermissionStep>();
    auto& pill = only<AccessibilityStatusPill>(*view);
    auto& button = showing<PushButton>(*view, "Open Accessibility Settings…");
    auto& hint = showing<Text>(*view, "Toggle “Pallistrom” on in the list, then come back here.");
    expectStack({&symbol, &title, texts.at(1), &pill, &button, &hint}, 16);
    expectCentred(symbol);
    expectCentred(pill);
    expectCentred(button);
    EXPECT_EQ(symbol.height(), 52);
    EXPECT_EQ(title.font().pixelSize(), 17);
    EXPECT_TRUE(title.font().bold());
    EXPECT_EQ(texts.at(1)->font().pixelSize(), 13);
    EXPECT_EQ(texts.at(1)->tone(), Tone::Secondary);
    EXPECT_GT(texts.at(1)->height(), 2 * texts.at(1)->fontMetrics().height()) << "wraps";
    EXPECT_EQ(hint.font().pixelSize(), 10);
    EXPECT_EQ(hint.tone(), Tone::Secondary);

    setTrusted(true);
    expectStack({&symbol, &title, texts.at(1), &pill, &button}, 16);
}

TEST_F(OnboardingLayout, stacksTheShortcuts) {
    openAt(2);
    auto& title = showing<Text>(*view, "Choose your shortcuts");
    auto& subtitle = showing<Text>(*view, "You can change these anytime from the menu bar.");
    const auto rows = view->findChildren<ShortcutRow*>();
    ASSERT_EQ(rows.size(), 4);
    EXPECT_EQ(below(title, subtitle), 4);
    EXPECT_EQ(below(subtitle, *rows.at(0)), 14);
    for (qsizetype index = 1; index < rows.size(); ++index) {
        EXPECT_EQ(below(*rows.at(index - 1), *rows.at(index)), 10);
    }
    EXPECT_EQ(place(title).left(), 32);
    EXPECT_TRUE(title.alignment().testFlag(Qt::AlignLeft));
    EXPECT_EQ(place(subtitle).left(), 32);
    EXPECT_EQ(title.font().pixelSize(), 17);
    EXPECT_TRUE(title.font().bold());
    EXPECT_EQ(subtitle.font().pixelSize(), 11);
    EXPECT_EQ(subtitle.tone(), Tone::Secondary);
}

TEST_F(OnboardingLayout, stacksTheFinish) {
    openAt(3);
    auto& title = showing<Text>(*view, "You're all set");
    auto& text = *only<FinishStep>(*view).findChildren<Text*>().at(1);
    auto& symbol = symbolOf<FinishStep>();
    auto& toggle = only<LoginToggle>(*view);
    expectStack({&symbol, &title, &text, &toggle}, 16);
    expectCentred(symbol);
    expectCentred(toggle);
    EXPECT_EQ(toggle.contentsMargins(), QMargins(0, 6, 0, 0));
    EXPECT_EQ(placeOf(toggle.control(), toggle).top(), 6);
    EXPECT_EQ(symbol.height(), 56);
    EXPECT_TRUE(isColour(pixelOf(symbol, QPoint(28, 28)), QColor(0x34, 0xc7, 0x59)));
    EXPECT_EQ(title.font().pixelSize(), 17);
    EXPECT_EQ(text.tone(), Tone::Secondary);
    const QRect label = place(showing<Text>(*view, "Launch Pallistrom at login"));
    EXPECT_EQ(place(toggle.control()).left() - (label.right() + 1), 8) << "it follows its label";
}

} // namespace

} // namespace pallistrom
