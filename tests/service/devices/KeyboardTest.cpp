// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "KeyboardsUnderTest.h"
#include "RecordedLog.h"

#include <gtest/gtest.h>

#include <string>

namespace pallistrom {

namespace {

using GrabbedBy = FakeHardware::GrabbedBy;

class KeyboardTest : public testing::Test {
public:
    KeyboardTest() { machine.plugIn(hardware); }

protected:
    void key(std::uint16_t code, std::int32_t value) {
        machine.advance(Moment{100'000});
        hardware.key(code, value);
        machine.serve();
    }

    [[nodiscard]] bool isGrabbed() const { return hardware.grabbedBy == GrabbedBy::Service; }

    void TearDown() override { EXPECT_EQ(hardware.complaint, std::nullopt); }

    FakeHardware hardware;
    KeyboardsUnderTest machine;
};

TEST_F(KeyboardTest, isGrabbedWhileThatIsAllowedAndTheTapIsOn) {
    machine.keyboards.setAllowed(true);
    EXPECT_FALSE(isGrabbed());
    machine.switchTap(true);
    EXPECT_TRUE(isGrabbed());
    machine.keyboards.setAllowed(false);
    EXPECT_FALSE(isGrabbed());
    machine.keyboards.setAllowed(true);
    EXPECT_TRUE(isGrabbed());
    machine.switchTap(false);
    EXPECT_FALSE(isGrabbed());
}

TEST_F(KeyboardTest, isNotListenedToWhileNobodyWantsIt) {
    EXPECT_FALSE(hardware.isHeard);
    machine.allow();
    EXPECT_TRUE(hardware.isHeard);
    machine.keyboards.setAllowed(false);
    EXPECT_FALSE(hardware.isHeard);
    key(KEY_A, 1);
    EXPECT_EQ(hardware.wakeUps, 0U);
}

TEST_F(KeyboardTest, isGrabbedOnceItsKeysAreUp) {
    hardware.key(KEY_ENTER, 1);
    machine.allow();
    EXPECT_FALSE(isGrabbed());
    key(KEY_A, 1);
    key(KEY_ENTER, 0);
    EXPECT_FALSE(isGrabbed());
    key(KEY_A, 0);
    EXPECT_TRUE(isGrabbed());
    EXPECT_TRUE(hardware.keyboardEvents.empty());
}

TEST_F(KeyboardTest, isNotGrabbedIfAKeyGoesDownMeanwhile) {
    hardware.keyInBetween = KEY_A;
    machine.allow();
    EXPECT_FALSE(isGrabbed());
    key(KEY_A, 0);
    EXPECT_TRUE(isGrabbed());
}

TEST_F(KeyboardTest, looksAnewIfItMissedSomethingWhileItWaited) {
    hardware.key(KEY_ENTER, 1);
    machine.allow();
    hardware.key(KEY_ENTER, 0);
    hardware.drop();
    machine.serve();
    EXPECT_TRUE(isGrabbed());
}

TEST_F(KeyboardTest, isLetGoOnceItsKeysAreUp) {
    machine.allow();
    key(KEY_A, 1);
    machine.keyboards.setAllowed(false);
    EXPECT_TRUE(isGrabbed());
    key(KEY_LEFTCTRL, 1);
    key(KEY_W, 1);
    key(KEY_A, 0);
    key(KEY_W, 0);
    EXPECT_TRUE(isGrabbed());
    key(KEY_LEFTCTRL, 0);
    EXPECT_FALSE(isGrabbed());
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(hardware), "+a +ctrl +w -a -w -ctrl");
}

TEST_F(KeyboardTest, keepsAKeyThatGoesDownWhileItIsLetGo) {
    machine.allow();
    key(KEY_A, 1);
    machine.keyboards.setAllowed(false);
    hardware.keyInBetween = KEY_X;
    key(KEY_A, 0);
    EXPECT_TRUE(isGrabbed());
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(hardware), "+a -a +x");
    key(KEY_X, 0);
    EXPECT_FALSE(isGrabbed());
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(hardware), "-x");
}

TEST_F(KeyboardTest, isNotLetGoWhileAnythingWaitsBehindAPause) {
    machine.allow();
    hardware.key(KEY_LEFTCTRL, 1);
    hardware.key(KEY_U, 1);
    hardware.key(KEY_U, 0);
    hardware.key(KEY_LEFTCTRL, 0);
    machine.serve();
    machine.keyboards.setAllowed(false);
    EXPECT_TRUE(isGrabbed());
    machine.advanceToTheEnd();
    EXPECT_FALSE(isGrabbed());
    EXPECT_TRUE(hardware.seenOfKeyboard.down().none());
}

TEST_F(KeyboardTest, endsAChordForWhoeverComesNext) {
    machine.allow();
    key(KEY_LEFTCTRL, 1);
    key(KEY_W, 1);
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(hardware), "+ctrl +bs");
    machine.keyboards.setAllowed(false);
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(hardware), "-bs");
    key(KEY_W, 0);
    key(KEY_LEFTCTRL, 0);
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(hardware), "-ctrl");
    EXPECT_FALSE(isGrabbed());
}

TEST_F(KeyboardTest, mayBeAllowedAgainBeforeItIsLetGo) {
    machine.allow();
    key(KEY_LEFTCTRL, 1);
    machine.keyboards.setAllowed(false);
    machine.keyboards.setAllowed(true);
    key(KEY_W, 1);
    key(KEY_W, 0);
    key(KEY_LEFTCTRL, 0);
    EXPECT_TRUE(isGrabbed());
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(hardware), "+ctrl +bs -bs -ctrl");
}

TEST_F(KeyboardTest, isLeftToTheProgramThatHoldsItAndThatIsSaidOnce) {
    hardware.grabbedBy = GrabbedBy::Another;
    RecordedLog::take();
    machine.allow();
    EXPECT_FALSE(hardware.isHeard);
    machine.keyboards.setAllowed(false);
    machine.keyboards.setAllowed(true);
    EXPECT_EQ(RecordedLog::take(),
              std::vector<std::string>{
                  "Pallistrom: another program holds keyboard; it is left to that program"});
    hardware.grabbedBy = GrabbedBy::Nobody;
    machine.sayReady(hardware);
    EXPECT_TRUE(isGrabbed());
}

TEST_F(KeyboardTest, isGrabbedNoEarlierThanTheSessionKnowsItsCounterpart) {
    FakeHardware late("late");
    late.isReady = false;
    machine.plugIn(late);
    machine.allow();
    EXPECT_EQ(late.grabbedBy, GrabbedBy::Nobody);
    late.isReady = true;
    machine.sayReady(late);
    EXPECT_EQ(late.grabbedBy, GrabbedBy::Service);
    late.unplug();
    machine.sayUnplugged(late);
}

TEST_F(KeyboardTest, makesUpForWhatWasLost) {
    machine.allow();
    key(KEY_A, 1);
    key(KEY_LEFTCTRL, 1);
    hardware.key(KEY_A, 0);
    hardware.key(KEY_X, 1);
    hardware.drop();
    machine.serve();
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(hardware), "+a +ctrl -a +x");
    key(KEY_X, 0);
    key(KEY_LEFTCTRL, 0);
    EXPECT_TRUE(hardware.seenOfKeyboard.down().none());
}

TEST_F(KeyboardTest, endsWhenItIsUnpluggedWhetherThatIsReadOrSaid) {
    machine.allow();
    hardware.unplug();
    machine.serve();
    EXPECT_FALSE(hardware.isHeld);
    machine.sayUnplugged(hardware);

    machine.plugIn(hardware);
    EXPECT_TRUE(isGrabbed());
    hardware.unplug();
    machine.sayUnplugged(hardware);
    EXPECT_FALSE(hardware.isHeld);
}

TEST_F(KeyboardTest, isToldOfItsLights) {
    machine.allow();
    hardware.send({eventOf(EV_LED, LED_CAPSL, 1)});
    machine.serve();
    EXPECT_EQ(hardware.lights, std::vector<std::uint16_t>{LED_CAPSL});
    EXPECT_TRUE(hardware.keyboardEvents.empty());
}

} // namespace

} // namespace pallistrom
