// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "KnownFailures.h"

#include "ScriptCase.h"
#include "ScriptedSession.h"
#include "expectOutput.h"
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

INSTANTIATE_TEST_SUITE_P(StuckKeys, NoMore, testing::ValuesIn(KnownFailures::stuckKeys()), nameOf);

INSTANTIATE_TEST_SUITE_P(UnwantedKeys,
                         NoMore,
                         testing::ValuesIn(KnownFailures::unwantedKeys()),
                         nameOf);

INSTANTIATE_TEST_SUITE_P(ShortcutsThatDoNotFire,
                         NoMore,
                         testing::ValuesIn(KnownFailures::shortcutsThatDoNotFire()),
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
