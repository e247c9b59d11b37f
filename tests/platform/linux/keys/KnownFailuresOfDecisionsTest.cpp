// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ScriptCase.h"
#include "expectOutput.h"

#include <gtest/gtest.h>

namespace pallistrom {

namespace {

// As in KnownFailuresTest.cpp, with whatever could be decided about a key.

class NoMoreEver : public testing::TestWithParam<ScriptCase> {};

TEST_P(NoMoreEver, ofThis) {
    expectDelivery(GetParam(), KeyDelivery::Rewritten::Held);
}

INSTANTIATE_TEST_SUITE_P(
    DecisionsThatChange,
    NoMoreEver,
    testing::Values(ScriptCase{"keyStuckWhenItsShortcutIsSwitchedOffWhileItRepeats",
                               "+ctrl +w=ctrl+bs ~w=ctrl+bs ~w -w -ctrl",
                               "+ctrl +bs -bs -ctrl"},
                    ScriptCase{"keyStuckWhenItsSequenceIsSwitchedOffWhileItRepeats",
                               "+ctrl +k>ctrl+bs ~k>ctrl+bs ~k -k -ctrl",
                               "+ctrl +bs -bs +bs -bs -ctrl"},
                    ScriptCase{"releaseOfARewrittenKeyLost",
                               "+ctrl +w=ctrl+bs -w -ctrl",
                               "+ctrl +bs -bs -ctrl"},
                    ScriptCase{"releaseOfAnUntouchedKeyRewritten",
                               "+ctrl +w -w=ctrl+bs -ctrl",
                               "+ctrl +w -w -ctrl"},
                    ScriptCase{"releaseOfAnUntouchedKeySwallowed", "+x -x>", "+x -x"},
                    ScriptCase{"releaseOfASwallowedKeySent", "+x> -x", ""},
                    ScriptCase{"keyStuckWhenItsRepeatIsRewritten",
                               "+w +ctrl ~w=ctrl+bs -w -ctrl",
                               "+w +ctrl -w +bs -bs -ctrl"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(KeyboardsThatAreTakenOver,
                         NoMoreEver,
                         testing::Values(ScriptCase{"keyDeadThatWasHeldMeanwhile",
                                                    "down:enter -enter +enter -enter",
                                                    "-enter +enter -enter"},
                                         ScriptCase{"keyRepeatedByUsThatWasHeldMeanwhile",
                                                    "down:enter ~enter ~enter -enter",
                                                    "-enter"},
                                         ScriptCase{"modifierStuckThatWasHeldMeanwhile",
                                                    "down:ctrl +w=ctrl+bs -w -ctrl",
                                                    "+bs -bs -ctrl"}),
                         nameOf);

INSTANTIATE_TEST_SUITE_P(
    KeyboardsThatGoAway,
    NoMoreEver,
    testing::Values(
        ScriptCase{
            "keysStuckAfterSuspend", "+a +ctrl +w=ctrl+bs letgo", "+a +ctrl +bs -bs . -ctrl . -a"},
        ScriptCase{"keysReleasedTwiceAfterSuspend",
                   "+a +ctrl +w=ctrl+bs letgo -w -ctrl -a",
                   "+a +ctrl +bs -bs . -ctrl . -a"},
        ScriptCase{"keysTypedByReleasesAfterSuspend", "+x letgo ~x=bs ~x>bs -x>bs", "+x -x"},
        ScriptCase{"keysDeadAfterSuspend",
                   "+ctrl +a letgo -a -ctrl +ctrl +a -a -ctrl",
                   "+ctrl +a . -ctrl . -a +ctrl +a -a -ctrl"},
        ScriptCase{"keysDeadAfterSuspendThatSwallowedTheirReleases",
                   "+ctrl +a letgo +ctrl +a -a -ctrl",
                   "+ctrl +a . -ctrl . -a +ctrl +a -a -ctrl"},
        ScriptCase{"shortcutDeadAfterSuspend",
                   "+ctrl +w=ctrl+bs letgo -w -ctrl +ctrl +w=ctrl+bs -w -ctrl",
                   "+ctrl +bs -bs . -ctrl . +ctrl +bs -bs -ctrl"},
        ScriptCase{"superStuckAfterLockingTheScreen",
                   "+super +k letgo -k -super +k -k",
                   "+super +k . +ctrl -super -ctrl . -k +k -k"},
        ScriptCase{"overviewOpenedByUnplugging", "+super letgo", "+super . +ctrl -super -ctrl ."},
        ScriptCase{"modifierPressedOnlyToBeReleased",
                   "+alt +d=ctrl+del letgo",
                   "+alt . +ctrl -alt . +del -del . -ctrl ."},
        ScriptCase{"keyPressedTwiceAfterALostRelease", "+a +a -a", "+a -a"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    KeysTappedAlone,
    NoMoreEver,
    testing::Values(
        ScriptCase{"menuOpenedWhenTheOtherKeyIsSwallowed",
                   "+alt +x> -x> -alt",
                   "+alt . +ctrl -alt -ctrl ."},
        ScriptCase{"overviewOpenedWhenTheOtherKeyIsSwallowed",
                   "+super +x> -super -x>",
                   "+super . +ctrl -super -ctrl ."},
        ScriptCase{"layoutSwitchedWhenAltIsHidden",
                   "+shift +alt +x> -x> -alt -shift",
                   "+shift +alt . -shift +ctrl -alt -ctrl +shift . -shift"},
        ScriptCase{"menuOpenedWhenNoModifierIsWanted",
                   "+alt +x=end -x -alt",
                   "+alt . +ctrl -alt -ctrl . +end -end . +ctrl +alt -ctrl . -alt"},
        ScriptCase{"menuOpenedWhenTheSwallowedKeyBecomesControl",
                   "table:caps=none +alt +caps> table:caps=control -alt -caps",
                   "+alt . +ctrl -alt -ctrl ."},
        ScriptCase{"menuNotOpenedThoughAltWasTappedAlone", "+x> -x> +alt -alt", "+alt -alt"},
        ScriptCase{
            "capsLockStuckWhenTheOtherKeyIsSwallowed", "+caps +x> -x> -caps", "+caps -caps"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    ModifiersThatChange,
    NoMoreEver,
    testing::Values(
        ScriptCase{"controlAltDeleteWhenControlIsHeldToo",
                   "+ctrl +alt +d=ctrl+del -d -alt -ctrl",
                   "+ctrl +alt . -alt . +del -del . +alt . -alt -ctrl"},
        ScriptCase{"layoutSwitchedOnTheWayToShift",
                   "+shift +alt +x=shift+home -x -alt -shift",
                   "+shift +alt . -shift +ctrl -alt -ctrl +shift . +home -home . -shift +ctrl "
                   "+alt -ctrl +shift . -alt -shift"},
        ScriptCase{"repeatsPiledUp",
                   "+ctrl +k>shift+end,bs ~k>shift+end,bs* ~k>shift+end,bs* -k -ctrl",
                   "+ctrl . -ctrl +shift . +end -end . -shift . +bs -bs . +ctrl . -ctrl"},
        ScriptCase{"keyOfASessionWithoutControlStuck",
                   "table:ctrl=capslock,rctrl=none +alt +d=del -d -alt",
                   "+alt . -alt . +del -del . +alt . -alt"},
        ScriptCase{"altGrCombinedWithTheChord",
                   "table:ralt=level3 +ralt +x=ctrl+left -x -ralt",
                   "+ralt . -ralt +ctrl . +left -left . -ctrl +ralt . -ralt"},
        ScriptCase{"capsLockToggledForAChord",
                   "table:ctrl=capslock,caps=control +ctrl +rctrl +x=home -x -rctrl -ctrl",
                   "+ctrl +rctrl . -rctrl . +home -home . +rctrl . -rctrl -ctrl"}),
    nameOf);

} // namespace

} // namespace pallistrom
