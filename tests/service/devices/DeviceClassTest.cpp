// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/devices/DeviceClass.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace pallistrom {

namespace {

DeviceFacts keyboard() {
    DeviceFacts facts;
    for (EvdevCode key = KEY_ESC; key <= KEY_F12; ++key) {
        facts.keys.set(key);
    }
    return facts;
}

DeviceFacts keyboardWith(std::initializer_list<EvdevCode> more) {
    DeviceFacts facts = keyboard();
    for (const EvdevCode key : more) {
        facts.keys.set(key);
    }
    return facts;
}

DeviceFacts only(std::initializer_list<EvdevCode> keys) {
    DeviceFacts facts;
    for (const EvdevCode key : keys) {
        facts.keys.set(key);
    }
    return facts;
}

DeviceClass usualClassOf(const DeviceFacts& facts) {
    return classOf(facts, ProgramsKeyboards::LeftAlone);
}

TEST(DeviceClass, isAKeyboardIfItHasLetters) {
    EXPECT_EQ(usualClassOf(keyboard()), DeviceClass::Keyboard);
    EXPECT_EQ(usualClassOf(keyboardWith({KEY_VOLUMEUP, KEY_POWER, KEY_MICMUTE})),
              DeviceClass::Keyboard);
}

TEST(DeviceClass, leavesAloneWhatHasKeysToTypeNothing) {
    EXPECT_EQ(usualClassOf(DeviceFacts()), DeviceClass::LeftAlone);
    EXPECT_EQ(usualClassOf(only({KEY_POWER})), DeviceClass::LeftAlone) << "a power button";
    EXPECT_EQ(usualClassOf(only({KEY_VOLUMEUP, KEY_VOLUMEDOWN, KEY_PLAYPAUSE})),
              DeviceClass::LeftAlone)
        << "a headset";
    EXPECT_EQ(usualClassOf(only({KEY_KP0, KEY_KP1, KEY_KPENTER})), DeviceClass::LeftAlone)
        << "a keypad";
}

TEST(DeviceClass, leavesMiceAlone) {
    DeviceFacts mouse = only({BTN_LEFT, BTN_RIGHT, BTN_MIDDLE});
    mouse.relativeAxes.set(REL_X).set(REL_Y).set(REL_WHEEL);
    EXPECT_EQ(usualClassOf(mouse), DeviceClass::LeftAlone);
}

TEST(DeviceClass, leavesAloneWhatIsPlayedWith) {
    DeviceFacts joystick = only({BTN_TRIGGER, BTN_THUMB});
    joystick.absoluteAxes.set(ABS_X).set(ABS_Y);
    EXPECT_EQ(usualClassOf(joystick), DeviceClass::LeftAlone);
    EXPECT_EQ(usualClassOf(keyboardWith({BTN_SOUTH, BTN_START})), DeviceClass::LeftAlone);
    DeviceFacts wheel = keyboard();
    wheel.hasForceFeedback = true;
    EXPECT_EQ(usualClassOf(wheel), DeviceClass::LeftAlone);
}

TEST(DeviceClass, leavesAloneWhatIsTouched) {
    EXPECT_EQ(usualClassOf(keyboardWith({BTN_TOOL_PEN, BTN_STYLUS})), DeviceClass::LeftAlone);
    EXPECT_EQ(usualClassOf(keyboardWith({BTN_TOOL_FINGER, BTN_TOUCH})), DeviceClass::LeftAlone);
    DeviceFacts screen = keyboard();
    screen.absoluteAxes.set(ABS_MT_SLOT);
    EXPECT_EQ(usualClassOf(screen), DeviceClass::LeftAlone);
}

TEST(DeviceClass, leavesSwitchesAlone) {
    DeviceFacts lid = keyboard();
    lid.hasSwitches = true;
    EXPECT_EQ(usualClassOf(lid), DeviceClass::LeftAlone);
}

TEST(DeviceClass, knowsACombinedReceiverByWheelsAxesAndButtons) {
    EXPECT_EQ(usualClassOf(keyboardWith({BTN_LEFT})), DeviceClass::KeyboardWithPointer);
    DeviceFacts wheel = keyboard();
    wheel.relativeAxes.set(REL_WHEEL_HI_RES);
    EXPECT_EQ(usualClassOf(wheel), DeviceClass::KeyboardWithPointer);
    DeviceFacts pointer = keyboard();
    pointer.absoluteAxes.set(ABS_X).set(ABS_Y);
    EXPECT_EQ(usualClassOf(pointer), DeviceClass::KeyboardWithPointer);
}

TEST(DeviceClass, takesAnAxisForTheVolumeForNoPointer) {
    DeviceFacts facts = keyboard();
    facts.absoluteAxes.set(ABS_VOLUME);
    EXPECT_EQ(usualClassOf(facts), DeviceClass::Keyboard);
}

TEST(DeviceClass, leavesAloneWhatProgramsMakeUnlessToldOtherwise) {
    DeviceFacts facts = keyboard();
    facts.maker = DeviceMaker::AnotherProgram;
    EXPECT_EQ(usualClassOf(facts), DeviceClass::LeftAlone);
    EXPECT_EQ(classOf(facts, ProgramsKeyboards::Taken), DeviceClass::Keyboard);
}

TEST(DeviceClass, neverIncludesOurOwnDevices) {
    DeviceFacts facts = keyboard();
    facts.maker = DeviceMaker::ThisService;
    EXPECT_EQ(usualClassOf(facts), DeviceClass::LeftAlone);
    EXPECT_EQ(classOf(facts, ProgramsKeyboards::Taken), DeviceClass::LeftAlone);
}

TEST(DeviceClass, tellsButtonsFromKeys) {
    for (const int button : {BTN_0, BTN_LEFT, BTN_TASK, BTN_TRIGGER_HAPPY, BTN_DPAD_UP}) {
        EXPECT_TRUE(isButton(static_cast<EvdevCode>(button))) << button;
    }
    for (const int key : {KEY_ESC, KEY_MICMUTE, KEY_OK, KEY_LIGHTS_TOGGLE, KEY_ALS_TOGGLE}) {
        EXPECT_FALSE(isButton(static_cast<EvdevCode>(key))) << key;
    }
}

} // namespace

} // namespace pallistrom
