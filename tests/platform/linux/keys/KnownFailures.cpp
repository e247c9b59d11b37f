// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "KnownFailures.h"

namespace pallistrom::KnownFailures {

std::vector<ScriptCase> stuckKeys() {
    return {
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
                   "+alt +ralt . +ctrl -alt -ralt . +del -del . +alt +ralt -ctrl . -ralt -alt"}};
}

std::vector<ScriptCase> unwantedKeys() {
    return {
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
            "+alt +shift . -shift +ctrl -alt . +del -del . +alt -ctrl +shift . -shift -alt"}};
}

std::vector<ScriptCase> shortcutsThatDoNotFire() {
    return {
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
        ScriptCase{"theSecondTime", "+ctrl +w -w +w -w -ctrl", "+ctrl +bs -bs +bs -bs -ctrl"}};
}

} // namespace pallistrom::KnownFailures
