// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "KeyboardsUnderTest.h"
#include "KnownFailures.h"
#include "ScriptCase.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pallistrom {

namespace {

// Pauses are time here and no words.
std::string withoutPauses(std::string script) {
    for (std::size_t at = script.find('.'); at != std::string::npos; at = script.find('.')) {
        script.erase(at, at + 1 < script.size() ? 2 : 1);
    }
    while (script.ends_with(' ')) {
        script.pop_back();
    }
    return script;
}

class KeysOfAKeyboard : public testing::TestWithParam<ScriptCase> {};

TEST_P(KeysOfAKeyboard, comeOutAsTheyAreTo) {
    FakeHardware hardware;
    KeyboardsUnderTest machine;
    machine.plugIn(hardware);
    machine.allow();
    EXPECT_EQ(machine.play(hardware, GetParam().in), withoutPauses(GetParam().out));
    EXPECT_TRUE(hardware.seenOfKeyboard.down().none()) << "left down";
    EXPECT_EQ(hardware.complaint, std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(StuckKeys,
                         KeysOfAKeyboard,
                         testing::ValuesIn(KnownFailures::stuckKeys()),
                         nameOf);

INSTANTIATE_TEST_SUITE_P(UnwantedKeys,
                         KeysOfAKeyboard,
                         testing::ValuesIn(KnownFailures::unwantedKeys()),
                         nameOf);

INSTANTIATE_TEST_SUITE_P(ShortcutsThatDoNotFire,
                         KeysOfAKeyboard,
                         testing::ValuesIn(KnownFailures::shortcutsThatDoNotFire()),
                         nameOf);

class KeyStreamTest : public testing::Test {
public:
    KeyStreamTest() {
        machine.plugIn(hardware);
        machine.plugIn(second);
        machine.allow();
    }

protected:
    // What comes out of both keyboards, one after the other.
    std::string playOnSecond(std::string_view script) { return machine.play(second, script); }

    std::string play(std::string_view script) { return machine.play(hardware, script); }

    void checkNothingIsDown() {
        for (FakeHardware* const each : {&hardware, &second}) {
            EXPECT_TRUE(each->seenOfKeyboard.down().none()) << each->name;
            EXPECT_TRUE(each->seenOfPointer.down().none()) << each->name;
            EXPECT_EQ(each->complaint, std::nullopt);
        }
    }

    FakeHardware hardware{"first"};
    FakeHardware second{"second"};
    KeyboardsUnderTest machine;
};

TEST_F(KeyStreamTest, passesAFrameOnAsItCame) {
    hardware.key(KEY_A, 1);
    machine.serve();
    hardware.key(KEY_A, 0);
    machine.serve();
    EXPECT_EQ(KeyboardsUnderTest::takeEvents(hardware.keyboardEvents),
              "scan:1030 +a | scan:1030 -a |");
}

TEST_F(KeyStreamTest, keepsTwoKeysOfOneFrameTogether) {
    hardware.down.set(KEY_A).set(KEY_X);
    hardware.send({eventOf(EV_MSC, MSC_SCAN, 4),
                   eventOf(EV_KEY, KEY_A, 1),
                   eventOf(EV_MSC, MSC_SCAN, 5),
                   eventOf(EV_KEY, KEY_X, 1)});
    machine.serve();
    EXPECT_EQ(KeyboardsUnderTest::takeEvents(hardware.keyboardEvents), "scan:4 +a scan:5 +x |");
}

TEST_F(KeyStreamTest, showsMadeUpKeysOneAFrameWithoutScanCodes) {
    play("+ctrl");
    hardware.keyboardEvents.clear();
    hardware.key(KEY_W, 1);
    machine.serve();
    hardware.key(KEY_W, 0);
    machine.serve();
    EXPECT_EQ(KeyboardsUnderTest::takeEvents(hardware.keyboardEvents), "+bs | -bs |");
}

TEST_F(KeyStreamTest, endsAFrameBeforeWhatIsMadeUpInTheSameOne) {
    hardware.down.set(KEY_LEFTCTRL).set(KEY_W);
    hardware.send({eventOf(EV_KEY, KEY_LEFTCTRL, 1), eventOf(EV_KEY, KEY_W, 1)});
    machine.serve();
    EXPECT_EQ(KeyboardsUnderTest::takeEvents(hardware.keyboardEvents), "+ctrl | +bs |");
}

TEST_F(KeyStreamTest, passesOnAScanCodeWithoutAKey) {
    hardware.send({eventOf(EV_MSC, MSC_SCAN, 99)});
    machine.serve();
    EXPECT_EQ(KeyboardsUnderTest::takeEvents(hardware.keyboardEvents), "scan:99 |");
}

TEST_F(KeyStreamTest, leavesRepeatingToTheVirtualKeyboard) {
    EXPECT_EQ(play("+a ~a ~a"), "+a");
    hardware.send({eventOf(EV_REP, REP_DELAY, 300), eventOf(EV_REP, REP_PERIOD, 20)});
    machine.serve();
    EXPECT_EQ(KeyboardsUnderTest::takeEvents(hardware.keyboardEvents), "20:0:300 20:1:20 |");
}

TEST_F(KeyStreamTest, postsTheKeysOfAShortcutAgainForEachRepeat) {
    EXPECT_EQ(play("+ctrl +k ~k -k -ctrl"),
              "+ctrl -ctrl +shift +end -end -shift +bs -bs +ctrl "
              "-ctrl +shift +end -end -shift +bs -bs +ctrl -ctrl");
}

TEST_F(KeyStreamTest, givesAPointersEventsToThePointer) {
    hardware.send({eventOf(EV_REL, REL_X, 3), eventOf(EV_REL, REL_WHEEL_HI_RES, 120)});
    hardware.key(BTN_LEFT, 1);
    machine.serve();
    hardware.send({eventOf(EV_ABS, ABS_X, 7)});
    hardware.key(BTN_LEFT, 0);
    machine.serve();
    EXPECT_EQ(KeyboardsUnderTest::takeEvents(hardware.pointerEvents),
              "2:0:3 2:11:120 | scan:1272 +272 | 3:0:7 | scan:1272 -272 |");
    EXPECT_TRUE(hardware.keyboardEvents.empty());
}

TEST_F(KeyStreamTest, dividesAFrameOfKeysAndMotion) {
    hardware.down.set(KEY_A);
    hardware.send({eventOf(EV_KEY, KEY_A, 1), eventOf(EV_REL, REL_X, 1)});
    machine.serve();
    EXPECT_EQ(KeyboardsUnderTest::takeEvents(hardware.keyboardEvents), "+a |");
    EXPECT_EQ(KeyboardsUnderTest::takeEvents(hardware.pointerEvents), "2:0:1 |");
}

TEST_F(KeyStreamTest, holdsNothingUpButWhatComesAfterAPause) {
    machine.advance(Moment{100'000});
    hardware.key(KEY_LEFTCTRL, 1);
    hardware.key(KEY_U, 1);
    hardware.key(KEY_U, 0);
    hardware.key(KEY_LEFTCTRL, 0);
    hardware.key(KEY_A, 1);
    machine.serve();
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(hardware), "+ctrl");
    machine.advanceToTheEnd();
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(hardware),
              "-ctrl +shift +home -home -shift +bs -bs +ctrl -ctrl +a");
    hardware.key(KEY_A, 0);
    machine.serve();
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(hardware), "-a");
}

TEST_F(KeyStreamTest, doesNotFireForAnApplicationThatKeepsItsKeys) {
    machine.keyboards.setFrontApplication(FrontApplication::KeepsItsKeys);
    EXPECT_EQ(play("+ctrl +w -w +u -u +k -k -ctrl +alt +d -d -alt"),
              "+ctrl +w -w +u -u +k -k -ctrl +alt +d -d -alt");
}

TEST_F(KeyStreamTest, goesByTheModifiersOfTheSession) {
    ModifierTable table = ModifierTable::standard();
    table.set(KEY_CAPSLOCK, Modifier::Control);
    machine.keyboards.setModifierTable(table);
    EXPECT_EQ(play("+caps +w -w -caps"), "+caps +bs -bs -caps");
}

TEST_F(KeyStreamTest, firesByAModifierOfAnotherKeyboard) {
    EXPECT_EQ(play("+ctrl"), "+ctrl");
    EXPECT_EQ(playOnSecond("+w -w"), "+bs -bs");
    EXPECT_EQ(play("-ctrl"), "-ctrl");
    checkNothingIsDown();
}

TEST_F(KeyStreamTest, liftsAModifierOnTheKeyboardThatHoldsIt) {
    EXPECT_EQ(play("+alt"), "+alt");
    EXPECT_EQ(playOnSecond("+d"), "+ctrl +del");
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(hardware), "-alt");
    EXPECT_EQ(playOnSecond("-d"), "-del -ctrl");
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(hardware), "+alt");
    play("-alt");
    checkNothingIsDown();
}

TEST_F(KeyStreamTest, showsAKeyOfTwoKeyboardsOnceAndUntilBothAreUp) {
    EXPECT_EQ(play("+a"), "+a");
    EXPECT_EQ(playOnSecond("+a"), "");
    EXPECT_EQ(play("-a"), "");
    EXPECT_EQ(playOnSecond("-a"), "");
    EXPECT_EQ(KeyboardsUnderTest::takeEvents(hardware.keyboardEvents), "-a |");
    checkNothingIsDown();
}

TEST_F(KeyStreamTest, letsGoOfTheKeysOfAKeyboardThatIsUnpluggedAmidAChord) {
    EXPECT_EQ(play("+ctrl +w"), "+ctrl +bs");
    hardware.unplug();
    machine.serve();
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(hardware), "-bs -ctrl");
    EXPECT_FALSE(hardware.isHeld);
    EXPECT_EQ(playOnSecond("+w -w"), "+w -w");
    checkNothingIsDown();
}

TEST_F(KeyStreamTest, doesNotForgetAKeyThatAnotherKeyboardHoldsToo) {
    play("+ctrl");
    playOnSecond("+ctrl");
    hardware.unplug();
    machine.serve();
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(second), "+ctrl");
    EXPECT_EQ(playOnSecond("+w -w -ctrl"), "+bs -bs -ctrl");
    checkNothingIsDown();
}

TEST_F(KeyStreamTest, doesNotTypeAKeyAgainThatAnotherKeyboardHoldsToo) {
    play("+a");
    playOnSecond("+a");
    hardware.unplug();
    machine.serve();
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(hardware), "-a");
    EXPECT_EQ(playOnSecond("-a +a -a"), "+a -a");
    checkNothingIsDown();
}

} // namespace

} // namespace pallistrom
