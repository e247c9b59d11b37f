// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/devices/Keyboards.h"

#include "KeyboardsUnderTest.h"
#include "RecordedLog.h"

#include <gtest/gtest.h>

#include <array>
#include <deque>
#include <string>

namespace pallistrom {

namespace {

using GrabbedBy = FakeHardware::GrabbedBy;

class FakeObserver final : public KeyControl::Observer {
public:
    void panicked() override { ++panics; }

    void keyboardsChanged() override { ++changes; }

    void forget() {
        panics = 0;
        changes = 0;
    }

    int panics = 0;
    int changes = 0;
};

class KeyboardsTest : public testing::Test {
public:
    KeyboardsTest() {
        machine.keyboards.setObserver(&observer);
        machine.plugIn(hardware);
        machine.plugIn(second);
        machine.allow();
        observer.forget();
    }

protected:
    [[nodiscard]] bool areGrabbed() const {
        return hardware.grabbedBy == GrabbedBy::Service && second.grabbedBy == GrabbedBy::Service;
    }

    FakeObserver observer;
    FakeHardware hardware{"first"};
    FakeHardware second{"second"};
    KeyboardsUnderTest machine;
};

TEST_F(KeyboardsTest, areLookedForOnceThatIsOfUse) {
    KeyboardsUnderTest other;
    EXPECT_EQ(other.looks, 0);
    other.keyboards.prepare();
    EXPECT_EQ(other.looks, 1);
    other.allow();
    EXPECT_EQ(other.looks, 2);
}

TEST_F(KeyboardsTest, sayWhetherTheyCanBeMade) {
    EXPECT_TRUE(machine.keyboards.canMakeKeyboards());
    machine.canMake = false;
    EXPECT_FALSE(machine.keyboards.canMakeKeyboards());
}

TEST_F(KeyboardsTest, tellWhenTheyBeginAndEndToBeGrabbed) {
    EXPECT_TRUE(machine.keyboards.isGrabbing());
    machine.keyboards.setAllowed(false);
    EXPECT_FALSE(machine.keyboards.isGrabbing());
    EXPECT_EQ(observer.changes, 1);
    machine.keyboards.setAllowed(true);
    EXPECT_EQ(observer.changes, 2);
}

TEST_F(KeyboardsTest, areAllLetGoByThePanicChord) {
    machine.play(second, "+a");
    EXPECT_EQ(machine.play(hardware, "+enter +esc"), "+enter +esc");
    EXPECT_EQ(observer.panics, 0);
    machine.play(hardware, "+bs");
    EXPECT_EQ(observer.panics, 1);
    EXPECT_EQ(hardware.grabbedBy, GrabbedBy::Nobody);
    EXPECT_EQ(second.grabbedBy, GrabbedBy::Nobody);
    EXPECT_TRUE(hardware.seenOfKeyboard.down().none());
    EXPECT_TRUE(second.seenOfKeyboard.down().none());
    EXPECT_FALSE(machine.keyboards.mayBeFiltered());
}

TEST_F(KeyboardsTest, knowThePanicChordInAnyOrderAndAmongOtherKeys) {
    for (const char* const chord :
         {"+bs +esc +enter", "+esc +a +enter +bs", "+shift +enter +bs +esc"}) {
        machine.play(hardware, "-bs -esc -enter -a -shift");
        machine.keyboards.setAllowed(true);
        ASSERT_TRUE(areGrabbed()) << chord;
        observer.forget();
        machine.play(hardware, chord);
        EXPECT_EQ(observer.panics, 1) << chord;
    }
}

TEST_F(KeyboardsTest, doNotPanicForKeysOfTwoKeyboardsOrForMadeUpOnes) {
    machine.play(hardware, "+esc +enter");
    machine.play(second, "+ctrl +w -w -ctrl +bs -bs");
    EXPECT_EQ(observer.panics, 0);
    machine.play(hardware, "-esc -enter");
}

TEST_F(KeyboardsTest, areGrabbedAfterAPanicOnceThatIsAllowedAgainAndTheyAreAtRest) {
    machine.play(hardware, "+bs +esc +enter");
    machine.keyboards.setAllowed(true);
    EXPECT_EQ(second.grabbedBy, GrabbedBy::Service);
    EXPECT_EQ(hardware.grabbedBy, GrabbedBy::Nobody);
    EXPECT_EQ(machine.play(hardware, "-bs -esc -enter"), "");
    EXPECT_TRUE(areGrabbed());
    EXPECT_EQ(machine.play(hardware, "+ctrl +w -w -ctrl"), "+ctrl +bs -bs -ctrl");
}

TEST_F(KeyboardsTest, mayBeToldWhatToDoWhileTheyTellOfAPanic) {
    class Caller final : public KeyControl::Observer {
    public:
        explicit Caller(KeyControl& control) : m_control(control) {}

        void panicked() override { m_control.setAllowed(false); }

        void keyboardsChanged() override { m_control.setModifierTable(ModifierTable::standard()); }

    private:
        KeyControl& m_control;
    };

    Caller caller(machine.keyboards);
    machine.keyboards.setObserver(&caller);
    machine.play(hardware, "+bs +esc +enter");
    EXPECT_FALSE(machine.keyboards.isGrabbing());
    machine.keyboards.setObserver(nullptr);
}

TEST_F(KeyboardsTest, showAllKeysUpBeforeSleep) {
    machine.play(hardware, "+ctrl +w");
    machine.play(second, "+a");
    second.key(BTN_LEFT, 1);
    machine.serve();
    machine.keyboards.aboutToSleep();
    for (const FakeHardware* const each : {&hardware, &second}) {
        EXPECT_TRUE(each->seenOfKeyboard.down().none()) << each->name;
        EXPECT_TRUE(each->seenOfPointer.down().none()) << each->name;
    }
    EXPECT_TRUE(areGrabbed());
    EXPECT_EQ(machine.play(hardware, "-w -ctrl"), "");
}

TEST_F(KeyboardsTest, askWhatIsHeldAfterSleep) {
    machine.play(hardware, "+ctrl");
    machine.keyboards.aboutToSleep();
    // Unseen by anybody, the one goes up and the other down.
    hardware.down.reset(KEY_LEFTCTRL).set(KEY_LEFTALT);
    hardware.keyboardEvents.clear();
    machine.keyboards.awake();
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(hardware), "+alt");
    EXPECT_EQ(machine.play(hardware, "+w -w -alt"), "+w -w -alt");
}

TEST_F(KeyboardsTest, loseNothingThatWasTypedBeforeTheyAreAskedAfterSleep) {
    machine.keyboards.aboutToSleep();
    hardware.key(KEY_A, 1);
    hardware.key(KEY_A, 0);
    machine.keyboards.awake();
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(hardware), "+a -a");
}

TEST_F(KeyboardsTest, areServedInTurnEvenIfOneNeverStops) {
    second.key(KEY_A, 1);
    for (int count = 0; count < 10; ++count) {
        hardware.send({eventOf(EV_REL, REL_X, 1)});
    }
    machine.serve(hardware);
    machine.serve(second);
    EXPECT_EQ(KeyboardsUnderTest::takeOutput(second), "+a");
    second.key(KEY_A, 0);
    machine.serve();
}

TEST_F(KeyboardsTest, areNotMoreThanThereIsRoomFor) {
    std::deque<FakeHardware> many(mostKeyboards);
    RecordedLog::take();
    for (FakeHardware& each : many) {
        machine.plugIn(each);
    }
    EXPECT_FALSE(many.back().isHeld);
    EXPECT_EQ(RecordedLog::take().back(),
              "Pallistrom: there are too many keyboards; keyboard is left alone");
    for (FakeHardware& each : many) {
        each.unplug();
        machine.sayUnplugged(each);
    }
}

TEST_F(KeyboardsTest, neverLogKeys) {
    RecordedLog::take();
    machine.play(hardware, "+ctrl +w -w -ctrl +a ~a -a");
    hardware.drop();
    machine.serve();
    EXPECT_TRUE(RecordedLog::take().empty());
}

} // namespace

} // namespace pallistrom
