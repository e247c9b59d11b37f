// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "DeliveryChecker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

namespace {

// The checker must not be satisfied with everything: each case is what a faulty delivery would do.

struct FaultCase {
    std::string name;
    std::string in;
    std::vector<std::string> out; ///< of each input
    std::string broken;
};

void PrintTo(const FaultCase& c, std::ostream* out) {
    *out << c.name << ": " << c.in;
}

std::vector<OutputStep> parseSteps(std::string_view script) {
    std::vector<OutputStep> steps;
    while (!script.empty()) {
        const std::string_view word = script.substr(0, script.find(' '));
        script.remove_prefix(std::min(script.size(), word.size() + 1));
        if (word == ".") {
            steps.push_back({OutputStep::Kind::Pause, 0});
        } else {
            const bool isPress = word.front() == '+';
            steps.push_back({isPress ? OutputStep::Kind::Press : OutputStep::Kind::Release,
                             KeyScript::keyNamed(word.substr(1))});
        }
    }
    return steps;
}

class DeliveryCheckerOfFaults : public testing::TestWithParam<FaultCase> {};

TEST_P(DeliveryCheckerOfFaults, findsThem) {
    DeliveryChecker checker(ModifierTable::standard(), KeyDelivery::Rewritten::Held);
    BrokenPromise broken;
    std::size_t at = 0;
    for (const DeliveryInput& input : DeliveryScript::parse(GetParam().in)) {
        ASSERT_FALSE(broken) << *broken << " before the last event";
        broken = checker.watch(input, parseSteps(GetParam().out.at(at++)));
    }
    EXPECT_EQ(broken.value_or("nothing"), GetParam().broken);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    DeliveryCheckerOfFaults,
    testing::Values(
        FaultCase{"none", "+ctrl +w=ctrl+bs -w", {"+ctrl", "+bs", "-bs"}, "nothing"},
        FaultCase{"lostPress", "+a", {""}, "an untouched press is lost"},
        FaultCase{"lostRelease", "+a -a", {"+a", ""}, "a key stays down that nobody holds"},
        FaultCase{"doubledPress", "+a +a", {"+a", "+a"}, "a key goes down that is down"},
        FaultCase{"doubledRelease", "+a -a", {"+a", "-a -a"}, "a key goes up that is up"},
        FaultCase{"doubledRepeat", "+a ~a", {"+a", "-a +a"}, "a key goes up that is still held"},
        FaultCase{"delayedKey", "+a", {". +a"}, "a pause delays what nobody changed"},
        FaultCase{"swallowedKeyShown", "+a>", {"+a"}, "a key goes down that nobody asked for"},
        FaultCase{"lostChord", "+a>bs,bs", {"+bs -bs"}, "a chord is not shown"},
        FaultCase{"chordStuck", "+a>bs", {"+bs"}, "a chord stays down too long"},
        FaultCase{"heldChordTapped",
                  "+a=bs",
                  {"+bs -bs"},
                  "a chord that lasts as long as its key goes up too soon"},
        FaultCase{"chordWithoutItsModifiers",
                  "+a>ctrl+bs",
                  {"+bs -bs"},
                  "a chord has not its own modifiers"},
        FaultCase{"modifierReleasedBeforeTheChord",
                  "+ctrl +w=ctrl+bs -ctrl",
                  {"+ctrl", "+bs", "-ctrl -bs"},
                  "a modifier changes while a chord is down"},
        FaultCase{
            "capsLockLifted", "+caps +a>bs", {"+caps", "-caps . +bs -bs"}, "caps lock is touched"},
        FaultCase{"shiftPressedThoughReleased",
                  "+shift +w=bs -shift",
                  {"+shift", "-shift . +bs", "-bs . +shift . -shift"},
                  "a modifier goes down that nobody holds"},
        FaultCase{"shiftNotRestored",
                  "+shift +w>bs",
                  {"+shift", "-shift . +bs -bs"},
                  "the modifiers are not those that are held"},
        FaultCase{
            "loneAlt", "+alt +x>end", {"+alt", "-alt . +end"}, "option or command is tapped alone"},
        FaultCase{"controlAltDelete",
                  "+alt +x>ctrl+del",
                  {"+alt", "+ctrl . +del"},
                  "control, option and Delete come together"},
        FaultCase{"controlShift",
                  "+ctrl +x>shift+home",
                  {"+ctrl", "+shift -ctrl . +home"},
                  "control and shift come together"},
        FaultCase{"noPause",
                  "+ctrl +x>bs",
                  {"+ctrl", "-ctrl +bs"},
                  "no pause stands between a change of modifiers and a key"},
        FaultCase{
            "twoPauses", "+ctrl +x>bs", {"+ctrl", "-ctrl . ."}, "two pauses follow each other"},
        FaultCase{"idlePause",
                  "+ctrl +x>ctrl+bs,bs",
                  {"+ctrl", "+bs . -bs"},
                  "a pause goes with no change of modifiers"}),
    [](const auto& test) { return test.param.name; });

} // namespace

} // namespace pallistrom
