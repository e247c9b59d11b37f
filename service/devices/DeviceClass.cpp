// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/devices/DeviceClass.h"

#include <algorithm>
#include <array>

namespace pallistrom {

namespace {

constexpr auto typingKeys = std::to_array<EvdevCode>({
    KEY_Q, KEY_W, KEY_E, KEY_R, KEY_T, KEY_Y, KEY_U,     KEY_I,     KEY_O, KEY_P,
    KEY_A, KEY_S, KEY_D, KEY_F, KEY_G, KEY_H, KEY_J,     KEY_K,     KEY_L, KEY_Z,
    KEY_X, KEY_C, KEY_V, KEY_B, KEY_N, KEY_M, KEY_SPACE, KEY_ENTER,
});

// Whoever has keys to type with, be they as few as on a keyboard for one hand, has letters. Power
// buttons, remote controls and the volume keys of a headset have none.
bool canType(const KeySet& keys) {
    return std::all_of(
        typingKeys.begin(), typingKeys.end(), [&](EvdevCode key) { return keys[key]; });
}

bool hasAnyOf(const KeySet& keys, EvdevCode first, EvdevCode last) {
    for (EvdevCode key = first; key <= last; ++key) {
        if (keys[key]) {
            return true;
        }
    }
    return false;
}

bool isGameDevice(const DeviceFacts& facts) {
    return hasAnyOf(facts.keys, BTN_JOYSTICK, BTN_THUMBR) ||
           hasAnyOf(facts.keys, BTN_DPAD_UP, BTN_DPAD_RIGHT) || facts.hasForceFeedback;
}

// Touchpads, touch screens and drawing tablets: programs know such a device by much that a copy
// does not have.
bool isTouched(const DeviceFacts& facts) {
    return hasAnyOf(facts.keys, BTN_TOOL_PEN, BTN_TOOL_QUADTAP) ||
           facts.absoluteAxes[ABS_MT_SLOT] || facts.absoluteAxes[ABS_MT_POSITION_X];
}

// Some keyboards claim axes that no program reads, such as one for the volume.
bool hasPointer(const DeviceFacts& facts) {
    return facts.relativeAxes.any() || facts.absoluteAxes[ABS_X] || facts.absoluteAxes[ABS_WHEEL] ||
           hasAnyOf(facts.keys, BTN_MISC, BTN_TASK);
}

} // namespace

DeviceClass classOf(const DeviceFacts& facts, ProgramsKeyboards programs) {
    const bool isForeign = facts.maker == DeviceMaker::AnotherProgram;
    if (facts.maker == DeviceMaker::ThisService ||
        (isForeign && programs == ProgramsKeyboards::LeftAlone)) {
        return DeviceClass::LeftAlone;
    }
    // Switches say whether a laptop is open: who grabs them keeps it from going to sleep.
    if (!canType(facts.keys) || facts.hasSwitches || isGameDevice(facts) || isTouched(facts)) {
        return DeviceClass::LeftAlone;
    }
    return hasPointer(facts) ? DeviceClass::KeyboardWithPointer : DeviceClass::Keyboard;
}

} // namespace pallistrom
