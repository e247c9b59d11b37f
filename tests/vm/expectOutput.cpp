// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "expectOutput.h"

#include "KeyScript.h"
#include "KeyboardStage.h"
#include "PacedKeys.h"
#include "ScriptedSession.h"
#include "withoutPauses.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace pallistrom {

namespace {

using namespace vm;

bool hasRepeats(const std::vector<KeyScript::Event>& events) {
    return std::any_of(events.begin(), events.end(), [](const KeyScript::Event& event) {
        return event.action == KeyAction::Repeat;
    });
}

// The kernel passes on no press of what is down: what follows a lost release is lost as well.
std::vector<KeyScript::Event> passedOn(const std::vector<KeyScript::Event>& events) {
    std::vector<KeyScript::Event> result;
    KeySet down;
    for (const KeyScript::Event& event : events) {
        if (event.action != KeyAction::Press || !down[event.key]) {
            result.push_back(event);
        }
        down[event.key] =
            down[event.key] ? event.action != KeyAction::Release : event.action == KeyAction::Press;
    }
    return result;
}

} // namespace

void expectOutput(const ScriptCase& c, KeyDelivery::Rewritten rewritten) {
    if (rewritten == KeyDelivery::Rewritten::Tapped) {
        GTEST_SKIP() << "the service holds rewritten keys";
    }
    const auto events = KeyScript::parse(c.in);
    if (ScriptedSession(rewritten).play(KeyScript::print(passedOn(events))) != c.out) {
        GTEST_SKIP() << "the kernel passes on no press of what is down";
    }
    FilteredKeyboard& keyboard =
        KeyboardStage::with("keyboard_host --programs-keyboards").keyboard();
    PacedKeys pace;
    keyboard.begin();
    for (const KeyScript::Event& event : events) {
        keyboard.type(pace.next(event));
    }
    EXPECT_EQ(keyboard.end(), withoutPauses(c.out)) << "typed";
    // Repeats that come while keys are still going out are dropped on purpose.
    if (!hasRepeats(events)) {
        EXPECT_EQ(keyboard.typeInABurst(events), withoutPauses(c.out)) << "all at once";
    }
}

} // namespace pallistrom
