// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keys/EditingKeys.h"

#include "platform/linux/keys/ChordFlags.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <string>
#include <vector>

namespace pallistrom {

namespace {

using namespace ChordFlags;
constexpr CGEventFlags capsLock = kCGEventFlagMaskAlphaShift;

struct EditingCase {
    std::string name;
    std::int64_t keyCode;
    CGEventFlags flags;
    std::vector<LinuxChord> chords;
};

void PrintTo(const EditingCase& c, std::ostream* out) {
    *out << c.name;
}

class EditingKey : public testing::TestWithParam<EditingCase> {};

TEST_P(EditingKey, isTheLinuxDesktopsOwn) {
    const EditingKeys keys = EditingKeys::forStroke(GetParam().keyCode, GetParam().flags);
    EXPECT_EQ(std::vector<LinuxChord>(keys.chords().begin(), keys.chords().end()),
              GetParam().chords);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    EditingKey,
    testing::Values(
        EditingCase{"optionDelete", 51, option, {{KEY_BACKSPACE, control}}},
        EditingCase{"optionShiftDelete", 51, option | shift, {{KEY_BACKSPACE, control}}},
        EditingCase{"commandDelete", 51, command, {{KEY_HOME, shift}, {KEY_BACKSPACE, 0}}},
        EditingCase{"plainDelete", 51, 0, {{KEY_BACKSPACE, 0}}},
        EditingCase{"plainDeleteWithCapsLock", 51, capsLock, {{KEY_BACKSPACE, 0}}},
        EditingCase{"optionForwardDelete", 117, option, {{KEY_DELETE, control}}},
        EditingCase{"commandForwardDelete", 117, command, {{KEY_END, shift}, {KEY_DELETE, 0}}},
        EditingCase{"shiftCommandRight", 124, shift | command, {{KEY_END, shift}}},
        EditingCase{"shiftCommandLeft", 123, shift | command, {{KEY_HOME, shift}}},
        EditingCase{"commandRight", 124, command, {{KEY_END, 0}}},
        EditingCase{"commandUp", 126, command, {{KEY_HOME, control}}},
        EditingCase{"shiftCommandDown", 125, shift | command, {{KEY_END, control | shift}}},
        EditingCase{"optionLeft", 123, option, {{KEY_LEFT, control}}},
        EditingCase{"shiftOptionRight", 124, option | shift, {{KEY_RIGHT, control | shift}}},
        EditingCase{"optionDown", 125, option, {{KEY_DOWN, control}}},
        EditingCase{"controlDelete", 51, control, {{KEY_BACKSPACE, control}}},
        EditingCase{
            "commandOptionDelete", 51, command | option, {{KEY_BACKSPACE, command | option}}},
        EditingCase{"commandC", 8, command, {{KEY_C, command}}},
        EditingCase{"plainA", 0, 0, {{KEY_A, 0}}},
        EditingCase{"aKeyThatLinuxDoesNotHave", 52, option, {}},
        EditingCase{"aKeyCodeFarAbove", 65536 + 51, option, {}}),
    [](const auto& test) { return test.param.name; });

class EditingKeyBySelection : public testing::TestWithParam<EditingCase> {};

TEST_P(EditingKeyBySelection, selectsTheWordAndDeletesIt) {
    const EditingKeys keys =
        EditingKeys::forStroke(GetParam().keyCode, GetParam().flags, EditingStyle::BySelection);
    EXPECT_EQ(std::vector<LinuxChord>(keys.chords().begin(), keys.chords().end()),
              GetParam().chords);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    EditingKeyBySelection,
    testing::Values(
        EditingCase{"optionDelete", 51, option, {{KEY_LEFT, control | shift}, {KEY_BACKSPACE, 0}}},
        EditingCase{
            "optionForwardDelete", 117, option, {{KEY_RIGHT, control | shift}, {KEY_DELETE, 0}}},
        EditingCase{"commandDelete", 51, command, {{KEY_HOME, shift}, {KEY_BACKSPACE, 0}}},
        EditingCase{"shiftCommandRight", 124, shift | command, {{KEY_END, shift}}},
        EditingCase{"plainDelete", 51, 0, {{KEY_BACKSPACE, 0}}},
        EditingCase{"controlDelete", 51, control, {{KEY_BACKSPACE, control}}}),
    [](const auto& test) { return test.param.name; });

} // namespace

} // namespace pallistrom
