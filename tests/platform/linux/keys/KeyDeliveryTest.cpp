// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keys/KeyDelivery.h"

#include "ScriptCase.h"
#include "ScriptedSession.h"
#include "expectOutput.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <string>
#include <vector>

namespace pallistrom {

namespace {

using Rewritten = KeyDelivery::Rewritten;

// --- With rewritten keys held, as where every key of the keyboard is seen.

class HeldDelivery : public testing::TestWithParam<ScriptCase> {};

TEST_P(HeldDelivery, showsTheSessionExactlyThis) {
    expectOutput(GetParam(), Rewritten::Held);
}

INSTANTIATE_TEST_SUITE_P(
    OfUntouchedKeys,
    HeldDelivery,
    testing::Values(
        ScriptCase{"aLetter", "+a -a", "+a -a"},
        ScriptCase{"rollover", "+a +x -a -x", "+a +x -a -x"},
        ScriptCase{"aShortcutThatIsNotOurs", "+ctrl +a -a -ctrl", "+ctrl +a -a -ctrl"},
        ScriptCase{
            "triggersWithoutModifiers", "+w -w +u -u +k -k +d -d", "+w -w +u -u +k -k +d -d"},
        ScriptCase{"aTriggerWithAForbiddenModifier",
                   "+ctrl +alt +w -w -alt -ctrl",
                   "+ctrl +alt +w -w -alt -ctrl"},
        ScriptCase{"hardwareRepeatsAreTheDesktopsBusiness", "+a ~a ~a -a", "+a -a"},
        ScriptCase{"loneModifiersAsTyped", "+alt -alt +super -super", "+alt -alt +super -super"},
        ScriptCase{"ctrlAltDeleteAsTyped",
                   "+ctrl +alt +del -del -alt -ctrl",
                   "+ctrl +alt +del -del -alt -ctrl"},
        ScriptCase{"altTab", "+alt +tab -tab +tab -tab -alt", "+alt +tab -tab +tab -tab -alt"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    OfShortcuts,
    HeldDelivery,
    testing::Values(
        ScriptCase{"ctrlW", "+ctrl +w -w -ctrl", "+ctrl +bs -bs -ctrl"},
        ScriptCase{"ctrlU",
                   "+ctrl +u -u -ctrl",
                   "+ctrl . -ctrl +shift . +home -home . -shift . +bs -bs . +ctrl . -ctrl"},
        ScriptCase{"ctrlK",
                   "+ctrl +k -k -ctrl",
                   "+ctrl . -ctrl +shift . +end -end . -shift . +bs -bs . +ctrl . -ctrl"},
        ScriptCase{"altD", "+alt +d -d -alt", "+alt . +ctrl -alt . +del -del . +alt -ctrl . -alt"},
        ScriptCase{"rightHandModifiers",
                   "+rctrl +w -w -rctrl +ralt +d -d -ralt",
                   "+rctrl +bs -bs -rctrl +ralt . +ctrl -ralt . +del -del . +ralt -ctrl . -ralt"},
        ScriptCase{
            "bothControls", "+ctrl +rctrl +w -w -rctrl -ctrl", "+ctrl +rctrl +bs -bs -rctrl -ctrl"},
        ScriptCase{"twiceInARow", "+ctrl +w -w +w -w -ctrl", "+ctrl +bs -bs +bs -bs -ctrl"},
        ScriptCase{
            "oneAfterTheOther",
            "+ctrl +w +u -w -u -ctrl",
            "+ctrl +bs -bs . -ctrl +shift . +home -home . -shift . +bs -bs . +ctrl . -ctrl"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    WithFurtherModifiers,
    HeldDelivery,
    testing::Values(
        ScriptCase{"shiftIsLiftedAndComesBack",
                   "+ctrl +shift +w -w -shift -ctrl",
                   "+ctrl +shift . -shift . +bs -bs . +shift . -shift -ctrl"},
        ScriptCase{"shiftThatWasLetGoMeanwhileDoesNotComeBack",
                   "+ctrl +shift +w -shift -w -ctrl",
                   "+ctrl +shift . -shift . +bs -bs -ctrl"},
        ScriptCase{"rightShiftWithControlU",
                   "+ctrl +rshift +u -u -rshift -ctrl",
                   "+ctrl +rshift . -ctrl . +home -home . -rshift . +bs -bs . +ctrl +rshift . "
                   "-rshift -ctrl"},
        ScriptCase{"capsLockDoesNotMatter",
                   "+caps -caps +ctrl +w -w -ctrl",
                   "+caps -caps +ctrl +bs -bs -ctrl"},
        ScriptCase{
            "capsLockHeldIsNotTouched",
            "+caps +ctrl +u -u -ctrl -caps",
            "+caps +ctrl . -ctrl +shift . +home -home . -shift . +bs -bs . +ctrl . -ctrl -caps"},
        ScriptCase{
            "altShiftD",
            "+alt +shift +d -d -shift -alt",
            "+alt +shift . -shift +ctrl -alt . +del -del . +alt -ctrl +shift . -shift -alt"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    InEveryOrder,
    HeldDelivery,
    testing::Values(
        ScriptCase{"controlIsLetGoBeforeW", "+ctrl +w -ctrl -w", "+ctrl +bs -bs -ctrl"},
        ScriptCase{
            "altIsLetGoBeforeD", "+alt +d -alt -d", "+alt . +ctrl -alt . +del -del . -ctrl ."},
        ScriptCase{
            "wRepeatsOnAfterControlWasLetGo", "+ctrl +w -ctrl ~w ~w -w", "+ctrl +bs -bs -ctrl"},
        ScriptCase{"controlComesAfterW", "+w +ctrl -w -ctrl", "+w +ctrl -w -ctrl"},
        ScriptCase{
            "controlComesAfterWThatRepeats", "+w +ctrl ~w -w -ctrl", "+w +ctrl -w +bs -bs -ctrl"},
        ScriptCase{
            "anotherKeyEndsTheHeldOne", "+ctrl +w +a -a -w -ctrl", "+ctrl +bs -bs +a -a -ctrl"},
        ScriptCase{
            "aKeyThatWasDownBeforeMayGoUp", "+a +ctrl +w -a -w -ctrl", "+a +ctrl +bs -a -bs -ctrl"},
        ScriptCase{"aModifierPressEndsTheHeldOne",
                   "+ctrl +w +shift -w -shift -ctrl",
                   "+ctrl +bs -bs +shift -shift -ctrl"},
        ScriptCase{"theSyntheticControlIsPressedForReal",
                   "+alt +d +ctrl -d -ctrl -alt",
                   "+alt . +ctrl -alt . +del -del . +alt -ctrl . +ctrl -ctrl -alt"},
        ScriptCase{
            "backspaceIsDownAlready", "+bs +ctrl +w -w -ctrl -bs", "+bs +ctrl -bs +bs -bs -ctrl"},
        ScriptCase{
            "backspaceGoesUpMeanwhile", "+bs +ctrl +w -bs -w -ctrl", "+bs +ctrl -bs +bs -bs -ctrl"},
        ScriptCase{
            "backspaceComesMeanwhile", "+ctrl +w +bs -w -bs -ctrl", "+ctrl +bs -bs +bs -bs -ctrl"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    OfRepeats,
    HeldDelivery,
    testing::Values(ScriptCase{"aRewrittenKeyIsHeldForTheDesktopToRepeat",
                               "+ctrl +w ~w ~w ~w -w -ctrl",
                               "+ctrl +bs -bs -ctrl"},
                    ScriptCase{"aSequenceIsPlayedAgain",
                               "+ctrl +k ~k -k -ctrl",
                               "+ctrl . -ctrl +shift . +end -end . -shift . +bs -bs . +ctrl "
                               ". -ctrl +shift . +end -end . -shift . +bs -bs . +ctrl . -ctrl"},
                    ScriptCase{
                        "aRepeatOfAKeyThatIsNotDownIsNothing", "+ctrl ~w -ctrl", "+ctrl -ctrl"},
                    ScriptCase{"aReleaseOfAKeyThatIsNotDownIsNothing", "-a -ctrl -w", ""}),
    nameOf);

TEST(HeldDelivery, dropsARepeatWhileItsOwnSequenceIsStillGoingOut) {
    ScriptedSession session(Rewritten::Held);
    session.play("+ctrl +k");
    session.sender = KeyDelivery::Sender::StillSending;
    EXPECT_EQ(session.play("~k ~k"), "");
    session.sender = KeyDelivery::Sender::Idle;
    EXPECT_EQ(session.play("~k"), "-ctrl +shift . +end -end . -shift . +bs -bs . +ctrl .");
    EXPECT_EQ(session.play("-k -ctrl"), "-ctrl");
}

// --- With rewritten keys tapped, as where only presses of shortcuts are seen.

class TappedDelivery : public testing::TestWithParam<ScriptCase> {};

TEST_P(TappedDelivery, showsTheSessionExactlyThis) {
    expectOutput(GetParam(), Rewritten::Tapped);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    TappedDelivery,
    testing::Values(
        ScriptCase{"ctrlW", "+ctrl +w -w -ctrl", "+ctrl +bs -bs -ctrl"},
        ScriptCase{"altD", "+alt +d -d -alt", "+alt . +ctrl -alt . +del -del . +alt -ctrl . -alt"},
        ScriptCase{"oneTapForEachRepeat",
                   "+ctrl +w ~w ~w -w -ctrl",
                   "+ctrl +bs -bs +bs -bs +bs -bs -ctrl"},
        ScriptCase{"controlIsLetGoBeforeW", "+ctrl +w -ctrl -w", "+ctrl +bs -bs -ctrl"}),
    nameOf);

// --- Around the edges.

TEST(Delivery, leavesKeysAloneWhileSomebodyElseOwnsThem) {
    ScriptedSession session(Rewritten::Held);
    session.keysAreLeftAlone = true;
    EXPECT_EQ(session.play("+ctrl +w -w -ctrl"), "+ctrl +w -w -ctrl");
}

TEST(Delivery, keepsPressAndReleaseTogetherWhenAnApplicationComesToTheFrontBetweenThem) {
    ScriptedSession session(Rewritten::Held);
    EXPECT_EQ(session.play("+ctrl +w"), "+ctrl +bs");
    session.keysAreLeftAlone = true;
    EXPECT_EQ(session.play("-w -ctrl"), "-bs -ctrl");

    EXPECT_EQ(session.play("+ctrl +w"), "+ctrl +w");
    session.keysAreLeftAlone = false;
    EXPECT_EQ(session.play("-w -ctrl"), "-w -ctrl");
}

TEST(Delivery, letsGoOfEverythingAtOnce) {
    ScriptedSession session(Rewritten::Held);
    session.play("+a +ctrl +w");
    EXPECT_EQ(session.letGo(), "-bs . -ctrl . -a");
    EXPECT_EQ(session.play("~w -w -ctrl -a"), "");
}

TEST(Delivery, letsGoOfAltWithoutATap) {
    ScriptedSession session(Rewritten::Held);
    session.play("+alt");
    EXPECT_EQ(session.letGo(), "+ctrl -alt -ctrl .");
}

TEST(Delivery, takesOverKeysThatAreDownAlready) {
    ScriptedSession session(Rewritten::Tapped);
    KeySet held;
    held.set(KEY_RIGHTCTRL).set(KEY_LEFTSHIFT).set(KEY_BACKSPACE);
    session.delivery.assume(held, held);
    EXPECT_EQ(session.play("+w"), "-bs . -shift . +bs -bs . +shift .");
}

TEST(Delivery, hidesASwallowedKeyFromMenus) {
    KeyDelivery delivery(ModifierTable::standard(), Rewritten::Held);
    std::vector<OutputStep> steps;
    const auto idle = KeyDelivery::Sender::Idle;
    delivery.handle(KEY_LEFTALT, KeyAction::Press, std::nullopt, idle, steps);
    delivery.handle(KEY_X, KeyAction::Press, Replacement{}, idle, steps);
    delivery.handle(KEY_X, KeyAction::Release, Replacement{}, idle, steps);
    delivery.handle(KEY_LEFTALT, KeyAction::Release, std::nullopt, idle, steps);
    EXPECT_EQ(KeyScript::print(steps), "+alt . +ctrl -alt -ctrl .");
}

TEST(Delivery, ignoresKeysThatNoKeyboardHas) {
    KeyDelivery delivery(ModifierTable::standard(), Rewritten::Held);
    std::vector<OutputStep> steps;
    for (const KeyAction action : {KeyAction::Press, KeyAction::Repeat, KeyAction::Release}) {
        delivery.handle(65535, action, std::nullopt, KeyDelivery::Sender::Idle, steps);
        delivery.handle(768, action, Replacement{}, KeyDelivery::Sender::Idle, steps);
    }
    EXPECT_TRUE(steps.empty());
}

// --- Modifiers that a session has moved.

TEST(MovedModifiers, capsLockThatIsControlIsControl) {
    ModifierTable table = ModifierTable::standard();
    table.set(KEY_CAPSLOCK, Modifier::Control);
    ScriptedSession session(Rewritten::Held, table);
    EXPECT_EQ(session.play("+caps +w -w -caps"), "+caps +bs -bs -caps");
    EXPECT_EQ(session.play("+caps +u -u -caps"),
              "+caps . -caps +shift . +home -home . -shift . +bs -bs . +caps . -caps");
    // The control that nobody holds is one that locks nothing.
    EXPECT_EQ(session.play("+alt +d -d -alt"), "+alt . +ctrl -alt . +del -del . +alt -ctrl . -alt");
}

TEST(MovedModifiers, swappedControlAndAltAreSwapped) {
    ModifierTable table = ModifierTable::standard();
    table.set(KEY_LEFTALT, Modifier::Control);
    table.set(KEY_LEFTCTRL, Modifier::Option);
    ScriptedSession session(Rewritten::Held, table);
    EXPECT_EQ(session.play("+alt +w -w -alt"), "+alt +bs -bs -alt");
    EXPECT_EQ(session.play("+ctrl +d -d -ctrl"),
              "+ctrl . +alt -ctrl . +del -del . +ctrl -alt . -ctrl");
}

TEST(MovedModifiers, rightAltThatIsAltGrIsNoOptionAndIsLifted) {
    ModifierTable table = ModifierTable::standard();
    table.set(KEY_RIGHTALT, Modifier::Level3);
    ScriptedSession session(Rewritten::Held, table);
    EXPECT_EQ(session.play("+ralt +d -d -ralt"), "+ralt +d -d -ralt");
    EXPECT_EQ(session.play("+ctrl +ralt +w -w -ralt -ctrl"),
              "+ctrl +ralt . -ralt . +bs -bs . +ralt . -ralt -ctrl");
}

TEST(MovedModifiers, replacedWhileAChordIsHeldEndIt) {
    ScriptedSession session(Rewritten::Held);
    session.play("+ctrl +shift +w");
    std::vector<OutputStep> steps;
    session.delivery.setModifierTable(ModifierTable(), steps);
    EXPECT_EQ(KeyScript::print(steps), "-bs . +shift .");
    EXPECT_EQ(session.play("-w -shift -ctrl"), "-shift -ctrl");
}

} // namespace

} // namespace pallistrom
