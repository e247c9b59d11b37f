// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ScriptCase.h"
#include "ScriptedSession.h"
#include "platform/linux/keys/EditingKeys.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace pallistrom {

namespace {

// How programs that change keys are known to fail. Each test is named after a failure, which is to
// happen no more.

// --- With the shortcuts of the catalogue, all switched on.

class NoMore : public testing::TestWithParam<ScriptCase> {};

TEST_P(NoMore, ofThis) {
    expectOutput(GetParam(), KeyDelivery::Rewritten::Held);
}

INSTANTIATE_TEST_SUITE_P(
    StuckKeys,
    NoMore,
    testing::Values(
        ScriptCase{
            "keyStuckWhenItsModifierIsReleasedFirst", "+ctrl +w -ctrl -w", "+ctrl +bs -bs -ctrl"},
        ScriptCase{
            "modifierStuckWhenItsKeyIsReleasedFirst", "+ctrl +w -w -ctrl", "+ctrl +bs -bs -ctrl"},
        ScriptCase{"altStuckAfterItsShortcut",
                   "+alt +d -d -alt +a -a",
                   "+alt . +ctrl -alt . +del -del . +alt -ctrl . -alt +a -a"},
        ScriptCase{"altStuckWhenReleasedDuringItsShortcut",
                   "+alt +d -alt -d +a -a",
                   "+alt . +ctrl -alt . +del -del . -ctrl . +a -a"},
        ScriptCase{"bareLetterTypedWhenTheModifierIsReleasedFirst",
                   "+ctrl +w -ctrl ~w -w",
                   "+ctrl +bs -bs -ctrl"},
        ScriptCase{"keyLostInFastTyping",
                   "+a +ctrl +w +x -a -w -x -ctrl",
                   "+a +ctrl +bs -bs +x -a -x -ctrl"},
        ScriptCase{
            "shortcutKeyStuckInRollover", "+ctrl +w +a -w -a -ctrl", "+ctrl +bs -bs +a -a -ctrl"},
        ScriptCase{
            "keyStuckWhenItsReleaseIsLost", "+ctrl +w -ctrl +a -a", "+ctrl +bs -bs -ctrl +a -a"},
        ScriptCase{"shortcutDeadAfterItsReleaseWasLost",
                   "+ctrl +w -ctrl +ctrl +w -w -ctrl",
                   "+ctrl +bs -bs -ctrl +ctrl +bs -bs -ctrl"},
        ScriptCase{"modifierStuckAfterItsReleaseWasLost",
                   "+ctrl +ctrl +w -w -ctrl",
                   "+ctrl +bs -bs -ctrl"},
        ScriptCase{"rightModifierStuckWithTheLeftOneOfASecondKeyboard",
                   "+ctrl +rctrl +w -ctrl -w -rctrl",
                   "+ctrl +rctrl +bs -bs -ctrl -rctrl"},
        ScriptCase{"leftModifierStuckWithTheRightOneOfASecondKeyboard",
                   "+alt +ralt +d -d -ralt -alt",
                   "+alt +ralt . +ctrl -alt -ralt . +del -del . +alt +ralt -ctrl . -ralt -alt"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    UnwantedKeys,
    NoMore,
    testing::Values(
        ScriptCase{"menuOpenedByALoneAlt",
                   "+alt +d ~d -d -alt",
                   "+alt . +ctrl -alt . +del -del . +alt -ctrl . -alt"},
        ScriptCase{"menuOpenedByALoneAltThatIsReleasedFirst",
                   "+alt +d -alt -d",
                   "+alt . +ctrl -alt . +del -del . -ctrl ."},
        ScriptCase{"controlAltDeleteWhenAltIsHeldForDelete",
                   "+alt +d -d +d -d -alt",
                   "+alt . +ctrl -alt . +del -del . +alt -ctrl . +ctrl -alt . +del -del . +alt "
                   "-ctrl . -alt"},
        ScriptCase{"controlAltDeleteWhenControlJoins",
                   "+alt +d +ctrl -ctrl -d -alt",
                   "+alt . +ctrl -alt . +del -del . +alt -ctrl . +ctrl -ctrl -alt"},
        ScriptCase{"controlAltDeleteWhenDeleteJoins",
                   "+alt +d +del -del -d -alt",
                   "+alt . +ctrl -alt . +del -del . +alt -ctrl . +del -del -alt"},
        ScriptCase{"controlAltDeleteWhenControlIsHeldToo",
                   "+ctrl +alt +d -d -alt -ctrl",
                   "+ctrl +alt +d -d -alt -ctrl"},
        ScriptCase{"shortcutFiredByItsOwnKeys",
                   "+ctrl +bs -bs -ctrl +ctrl -ctrl +shift +end -end -shift +bs -bs +ctrl -ctrl",
                   "+ctrl +bs -bs -ctrl +ctrl -ctrl +shift +end -end -shift +bs -bs +ctrl -ctrl"},
        ScriptCase{"shortcutOfAltFiredByItsOwnKeys",
                   "+alt +ctrl -alt +del -del +alt -ctrl -alt",
                   "+alt +ctrl -alt +del -del +alt -ctrl -alt"},
        ScriptCase{"layoutSwitchedByControlAndShift",
                   "+ctrl +u -u -ctrl",
                   "+ctrl . -ctrl +shift . +home -home . -shift . +bs -bs . +ctrl . -ctrl"},
        ScriptCase{"modifierPressedAgainThoughItWasReleased",
                   "+ctrl +shift +w -shift -w -ctrl",
                   "+ctrl +shift . -shift . +bs -bs -ctrl"},
        ScriptCase{"modifierPressedAgainThoughItIsBeingReleased",
                   "+ctrl +shift +w -ctrl -w -shift",
                   "+ctrl +shift . -shift . +bs -bs . -ctrl +shift . -shift"},
        ScriptCase{"repeatSentOnceByUsAndOnceByTheDesktop",
                   "+ctrl +w ~w ~w -w -ctrl",
                   "+ctrl +bs -bs -ctrl"},
        ScriptCase{"ordinaryRepeatSentTwice", "+a ~a ~a ~a -a", "+a -a"},
        ScriptCase{"everyKeyDelayed",
                   "+shift +a -a -shift +ctrl +x -x -ctrl",
                   "+shift +a -a -shift +ctrl +x -x -ctrl"},
        ScriptCase{
            "keyLostByProgramsThatReadModifiersLate",
            "+alt +shift +d -d -shift -alt",
            "+alt +shift . -shift +ctrl -alt . +del -del . +alt -ctrl +shift . -shift -alt"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    ShortcutsThatDoNotFire,
    NoMore,
    testing::Values(
        ScriptCase{"withShift",
                   "+ctrl +shift +w -w -shift -ctrl",
                   "+ctrl +shift . -shift . +bs -bs . +shift . -shift -ctrl"},
        ScriptCase{"withShiftPressedFirst",
                   "+shift +alt +d -d -alt -shift",
                   "+shift +alt . -shift +ctrl -alt . +del -del . +alt -ctrl +shift . -alt -shift"},
        ScriptCase{"withCapsLock",
                   "+caps -caps +alt +d -d -alt",
                   "+caps -caps +alt . +ctrl -alt . +del -del . +alt -ctrl . -alt"},
        ScriptCase{"withNumLock", "+num -num +ctrl +w -w -ctrl", "+num -num +ctrl +bs -bs -ctrl"},
        ScriptCase{"withBothModifiers",
                   "+ctrl +rctrl +u -u -rctrl -ctrl",
                   "+ctrl +rctrl . -ctrl -rctrl +shift . +home -home . -shift . +bs -bs . +ctrl "
                   "+rctrl . -rctrl -ctrl"},
        ScriptCase{"withAnotherKeyDown", "+a +ctrl +w -w -ctrl -a", "+a +ctrl +bs -bs -ctrl -a"},
        ScriptCase{"theSecondTime", "+ctrl +w -w +w -w -ctrl", "+ctrl +bs -bs +bs -bs -ctrl"}),
    nameOf);

// --- Where rewritten keys cannot be held: what is pressed there does not repeat, and whoever
// presses it has to release it.

class NoMoreWhenTapped : public testing::TestWithParam<ScriptCase> {};

TEST_P(NoMoreWhenTapped, ofThis) {
    expectOutput(GetParam(), KeyDelivery::Rewritten::Tapped);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    NoMoreWhenTapped,
    testing::Values(
        ScriptCase{"keyStuckThatNobodyReleases", "+ctrl +w -ctrl -w", "+ctrl +bs -bs -ctrl"},
        ScriptCase{"keyThatDoesNotRepeat",
                   "+ctrl +w ~w ~w -w -ctrl",
                   "+ctrl +bs -bs +bs -bs +bs -bs -ctrl"},
        ScriptCase{"altStuckWhenReleasedDuringItsShortcut",
                   "+alt +d -alt -d",
                   "+alt . +ctrl -alt . +del -del . +alt -ctrl . -alt"},
        ScriptCase{"modifierPressedAgainThoughItWasReleased",
                   "+ctrl +shift +w -shift ~w -w -ctrl",
                   "+ctrl +shift . -shift . +bs -bs . +shift . -shift +bs -bs -ctrl"}),
    nameOf);

// --- Around the edges.

TEST(NoMoreAnywhere, terminalRobbedOfItsKeys) {
    ScriptedSession session(KeyDelivery::Rewritten::Held);
    session.keysAreLeftAlone = true;
    const std::string script = "+ctrl +w ~w -w +u -u +k -k -ctrl +alt +d -d -alt";
    EXPECT_EQ(session.play(script), "+ctrl +w -w +u -u +k -k -ctrl +alt +d -d -alt");
}

/// Returns the keys that are pressed for the keystrokes that edit text.
std::vector<EvdevCode> keysPressedToEdit() {
    std::vector<EvdevCode> result;
    for (const std::int64_t keyCode : {51, 117, 123, 124, 125, 126}) {
        for (const CGEventFlags flags : {kCGEventFlagMaskAlternate,
                                         kCGEventFlagMaskCommand,
                                         kCGEventFlagMaskAlternate | kCGEventFlagMaskShift,
                                         kCGEventFlagMaskCommand | kCGEventFlagMaskShift}) {
            const EditingKeys keys = EditingKeys::forStroke(keyCode, flags);
            for (const LinuxChord& chord : keys.chords()) {
                result.push_back(chord.key);
            }
        }
    }
    return result;
}

TEST(NoMoreAnywhere, digitsTypedByKeypadKeysInPlaceOfEditingKeys) {
    constexpr auto ofTheMainBlock = std::to_array<EvdevCode>(
        {KEY_BACKSPACE, KEY_DELETE, KEY_HOME, KEY_END, KEY_LEFT, KEY_RIGHT, KEY_UP, KEY_DOWN});
    for (const EvdevCode key : keysPressedToEdit()) {
        EXPECT_NE(std::find(ofTheMainBlock.begin(), ofTheMainBlock.end(), key),
                  ofTheMainBlock.end())
            << key;
    }
}

} // namespace

} // namespace pallistrom
